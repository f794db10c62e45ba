#include "app/SettingsWindow.h"

#include "view/Frame.h"

#include <QAction>

SettingsWindow::SettingsWindow()
    : m_frame(m_settings.body())
{
    setWindowTitle(tr("設定"));
    setAttribute(Qt::WA_QuitOnClose, false); // it goes with the last main window
    setCentralWidget(m_frame);
    setMaximumSize(m_frame->bounds().maximum);
    resize(m_frame->bounds().ideal);

    auto *close = new QAction(this);
    close->setShortcuts({QKeySequence::Close, Qt::Key_Escape});
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
}

// The view goes before the fields that it shows.
SettingsWindow::~SettingsWindow()
{
    delete takeCentralWidget();
}
