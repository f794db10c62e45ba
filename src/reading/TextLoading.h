#pragma once

#include "view/OpenPanel.h"
#include "view/State.h"

#include <QObject>

#include <functional>

class ReadingText;
class UserDefaults;

/// Lets the user pick a file and puts its text into the reading pane. The panel offers "txt" while
/// `sp1` is 0, else "rtf"; an RTF file is shown as the source that it is. Whatever can't be read
/// leaves the text as it was, without a word. The latest file that was picked counts.
class TextLoading : public QObject {
    Q_OBJECT

public:
    using NewPanel = std::function<OpenPanel *(QWidget *window)>;

    TextLoading(ReadingText &text, State<qint64> &sp1, State<qint64> &sp2, UserDefaults &defaults,
                NewPanel newPanel);

    /// Returns with the panel open: the window waits for it, the other windows don't.
    void openText(QWidget *window);

    /// Leaves the text as it is.
    void stop();

signals:
    /// A file was picked.
    void began();
    /// Its text is there, or it turned out to have none, or nobody waits for it any more.
    void ended();

private:
    void load(const QString &path);
    void end();

    ReadingText &m_text;
    State<qint64> &m_sp1;
    State<qint64> &m_sp2;
    UserDefaults &m_defaults;
    NewPanel m_newPanel;
    int m_latestLoad = 0;
    bool m_isLoading = false;
};
