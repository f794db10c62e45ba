#pragma once

#include "document/IncomingText.h"
#include "view/OpenPanel.h"
#include "view/State.h"

#include <QObject>

#include <functional>

class ReadingText;
class UserDefaults;

/// Lets the user pick a file and puts its text into the reading pane. The panel offers "txt" while
/// `sp1` is 0, else "rtf"; an RTF file is shown as the source that it is. Whatever can't be read
/// leaves the text as it was, without a word. The latest file that was picked counts. A file that is
/// dropped or pasted goes the same way, by the same rules.
class TextLoading : public QObject {
    Q_OBJECT

public:
    using NewPanel = std::function<OpenPanel *(QWidget *window)>;

    TextLoading(ReadingText &text, State<qint64> &sp1, State<qint64> &sp2, UserDefaults &defaults,
                NewPanel newPanel);

    /// Returns with the panel open: the window waits for it, the other windows don't.
    void openText(QWidget *window);

    /// Files that were handed over: loaded as if picked when there is one, of the type that is offered.
    void openFiles(const QList<QUrl> &files);

    /// Reads the latest file that was loaded again, in an encoding named as for `decodedText`.
    void readAgain(const QByteArray &encoding);
    bool hasFile() const { return !m_file.isEmpty(); }
    /// In which it was read; empty where it was found out.
    const QByteArray &encoding() const { return m_encoding; }

    /// Leaves the text as it is.
    void stop();

signals:
    /// A file has become the text.
    void loaded();
    /// The file is no text in the encoding that was asked for.
    void unfit();
    /// A file was picked.
    void began();
    /// Its text is there, or it turned out to have none, or nobody waits for it any more.
    void ended();

private:
    void readSettings();
    QString allowedType() const;
    void load(const QString &path, const QByteArray &encoding = {});
    void show(const std::optional<IncomingText> &text, const QString &path, const QByteArray &encoding);
    void end();

    ReadingText &m_text;
    State<qint64> &m_sp1;
    State<qint64> &m_sp2;
    UserDefaults &m_defaults;
    NewPanel m_newPanel;
    QString m_file;
    QByteArray m_encoding;
    int m_latestLoad = 0;
    bool m_isLoading = false;
};
