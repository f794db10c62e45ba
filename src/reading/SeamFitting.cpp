#include "reading/SeamFitting.h"

#include "document/PiecedDocument.h"
#include "reading/TextPane.h"

#include <QTextBlock>
#include <QTextLayout>

#include <utility>

void SeamFitting::refit()
{
    ++m_fit;
    fitInView();
}

// Not in the middle of what changes the view.
void SeamFitting::fitInView()
{
    if (!m_pane.piecedDocument().hasSeams() || std::exchange(m_isFitting, true))
        return;
    QMetaObject::invokeMethod(
        &m_pane, [this] { fit(); }, Qt::QueuedConnection);
}

void SeamFitting::fit()
{
    m_isFitting = false;
    // What an input method is composing lies in the layout of its block, and would go with it.
    if (!m_pane.textCursor().block().layout()->preeditAreaText().isEmpty())
        return;
    PiecedDocument &document = m_pane.piecedDocument();
    double top = m_pane.contentOffset().y();
    for (QTextBlock block = m_pane.firstVisibleBlock();
         block.isValid() && top < m_pane.viewport()->height(); block = block.next()) {
        const int start = block.position();
        if (block.userState() != m_fit) {
            document.fitSeamAfter(block);
            block = document.findBlock(start);
            block.setUserState(m_fit);
        }
        top += m_pane.blockBoundingRect(block).height();
    }
}
