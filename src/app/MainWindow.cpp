#include "app/MainWindow.h"

#include "app/Japanese.h"
#include "view/Frame.h"
#include "view/Stacks.h"
#include "view/Unwinding.h"

#include <QCloseEvent>
#include <QToolBar>

MainWindow::MainWindow()
    : m_frame(m_content.body())
    , m_toolbar(m_content.toolbar())
{
    // The window's own place for toolbars has one unfold over the content, and leaves it there.
    setCentralWidget(VStack({m_toolbar, m_frame}, {.spacing = 0}));
}

// The view goes before the state that it shows.
MainWindow::~MainWindow()
{
    delete takeCentralWidget();
}

bool MainWindow::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
        boundSize();
    else if (event->type() == QEvent::ThemeChange)
        adoptDesktopFont();
    return handled;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    cancelDialogs(this);
    emit closed();
}

// The bars come on top of what the content may have.
void MainWindow::boundSize()
{
    const QSize bars = size() - centralWidget()->size() + QSize(0, m_toolbar->sizeHint().height());
    setMaximumSize(m_frame->bounds().maximum + bars);
}
