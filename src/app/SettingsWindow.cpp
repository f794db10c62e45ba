#include "app/SettingsWindow.h"

#include "view/Frame.h"
#include "view/Modifiers.h"

SettingsWindow::SettingsWindow()
    : m_frame(m_settings.body())
{
    setWindowTitle(tr("設定"));
    setAttribute(Qt::WA_QuitOnClose, false); // it goes with the last main window
    setCentralWidget(m_frame);
    setMaximumSize(m_frame->bounds().maximum);
    resize(m_frame->bounds().ideal);

    onKeys(
        {QKeySequence::Close, Qt::Key_Escape}, [this] { close(); }, this);
}

// The view goes before the fields that it shows.
SettingsWindow::~SettingsWindow()
{
    delete takeCentralWidget();
}
