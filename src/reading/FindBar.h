#pragma once

#include "document/TextSearch.h"
#include "reading/HitMarks.h"
#include "view/State.h"

#include <QTimer>
#include <QWidget>

class QLineEdit;
class TextPane;

/// The bar in which the person says what is to be found in a pane. As long as it is there, all hits in view
/// are marked; the one at hand is selected, and said to who listens.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(TextPane &pane);

    /// Shows the bar, with what is selected if that is part of a line, and takes the keyboard.
    void open();
    /// Leaves the keyboard where it is, unless nobody has said yet what is wanted.
    void findNext() { step(Wanted::Next); }
    void findPrevious() { step(Wanted::Previous); }
    /// Hides the bar, and gives the keyboard back to the pane.
    void dismiss();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Wanted { Nothing, Nearest, Next, Previous };

    QWidget *field();
    void takeSelection();
    int caret() const;
    void findAnew(int from, Wanted wanted);
    void findAgainSoon();
    void step(Wanted wanted);
    void goOn();
    std::optional<TextSearch::Found> sought() const;
    void arrive(const TextSearch::Found &found);
    void select(const TextSearch::Hit &hit);
    void showStatus();
    QString found() const;

    TextPane &m_pane;
    QLineEdit *m_field;
    HitMarks &m_marks;
    State<bool> m_isExact{false};
    State<QString> m_status;
    TextPattern m_pattern;
    TextSearch m_search;
    QTimer m_again;   // when the text has changed
    int m_anchor = 0; // where the person was when they began to type
    Wanted m_wanted = Wanted::Nothing;
    std::optional<TextSearch::Hit> m_current;
    QString m_around; // that it went on from the other end
    bool m_isSaid = true;
};
