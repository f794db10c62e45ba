#include "reading/Patience.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

using namespace std::chrono_literals;

namespace {

bool isTyping(const QEvent &event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease
        || event.type() == QEvent::InputMethod;
}

bool isKey(const QEvent &event, Qt::Key key)
{
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent &>(event).key() == key;
}

// These go to other controls, which don't wait.
bool leavesThePane(const QEvent &event)
{
    return isKey(event, Qt::Key_Tab) || isKey(event, Qt::Key_Backtab);
}

} // namespace

Patience::Patience(QWidget *pane)
    : QObject(pane)
    , m_pane(*pane)
    , m_label(new QLabel(pane))
{
    m_label->setTextFormat(Qt::PlainText);
    m_label->setFrameStyle(QFrame::StyledPanel);
    m_label->setAutoFillBackground(true);
    m_label->setBackgroundRole(QPalette::ToolTipBase);
    m_label->setForegroundRole(QPalette::ToolTipText);
    m_label->setMargin(6);
    m_label->hide();
    m_noticed.setSingleShot(true);
    m_noticed.setInterval(300ms);
    connect(&m_noticed, &QTimer::timeout, this, &Patience::show);
    pane->installEventFilter(this);
}

Patience::~Patience() = default;

void Patience::begin(const QString &what)
{
    ++m_waits;
    m_label->setText(tr("%1（Esc で中止）").arg(what));
    m_noticed.start();
}

void Patience::end()
{
    if (--m_waits > 0)
        return;
    m_noticed.stop();
    m_label->hide();
    letGo();
}

void Patience::show()
{
    m_label->setFont(QApplication::font()); // not in the size of the text
    m_label->adjustSize();
    m_label->move((m_pane.width() - m_label->width()) / 2, (m_pane.height() - m_label->height()) / 2);
    m_label->show();
    QAccessibleEvent told(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

// What comes out may make the pane wait again.
void Patience::letGo()
{
    while (m_waits == 0 && !m_kept.empty()) {
        const auto event = std::move(m_kept.front());
        m_kept.pop_front();
        QCoreApplication::sendEvent(&m_pane, event.get());
    }
}

bool Patience::eventFilter(QObject *, QEvent *event)
{
    if (m_waits == 0 || !isTyping(*event) || leavesThePane(*event))
        return false;
    if (isKey(*event, Qt::Key_Escape))
        emit givenUp();
    else
        m_kept.emplace_back(event->clone());
    return true;
}
