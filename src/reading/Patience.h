#pragma once

#include <QObject>
#include <QTimer>

#include <deque>
#include <memory>

class QLabel;
class QWidget;

/// Lets a pane wait for something: what is typed meanwhile is kept, and reaches the pane in its order when
/// the waiting ends, as if the pane had been busy. A wait that one notices is shown, and Escape ends it.
class Patience : public QObject {
    Q_OBJECT

public:
    explicit Patience(QWidget *pane);
    ~Patience() override;

    /// `what` the pane waits for, to be shown. Each has its end.
    void begin(const QString &what);
    void end();

    bool eventFilter(QObject *pane, QEvent *event) override;

signals:
    /// The person doesn't want to wait any longer.
    void givenUp();

private:
    void show();
    void letGo();

    QWidget &m_pane;
    QLabel *m_label;
    QTimer m_noticed;
    int m_waits = 0;
    std::deque<std::unique_ptr<QEvent>> m_kept;
};
