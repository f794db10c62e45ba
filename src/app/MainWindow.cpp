#include "app/MainWindow.h"

#include "view/Frame.h"
#include "view/Unwinding.h"

#include <QCloseEvent>

MainWindow::MainWindow()
    : m_frame(m_content.body())
{
    setAnimated(false);
    addToolBar(m_content.toolbar());
    setContextMenuPolicy(Qt::PreventContextMenu); // it would offer to hide the toolbar for good
    setCentralWidget(m_frame);
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
    const QSize bars = size() - m_frame->size();
    setMaximumSize(m_frame->bounds().maximum + bars);
}
