#include "view/Stacks.h"

#include <QBoxLayout>
#include <QScrollArea>

namespace {

QWidget *filled(QLayout *layout, std::initializer_list<QWidget *> children, const StackOptions &options)
{
    auto *stack = new QWidget;
    stack->setLayout(layout);
    if (options.spacing)
        layout->setSpacing(*options.spacing);
    if (!options.padded)
        layout->setContentsMargins({});
    for (QWidget *child : children) {
        layout->addWidget(child);
        if (options.alignment)
            layout->setAlignment(child, options.alignment);
    }
    return stack;
}

// Asks for what its content would like; Qt's own asks for less.
class ScrollArea : public QScrollArea {
public:
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

} // namespace

QWidget *HStack(std::initializer_list<QWidget *> children, StackOptions options)
{
    return filled(new QHBoxLayout, children, options);
}

QWidget *VStack(std::initializer_list<QWidget *> children, StackOptions options)
{
    return filled(new QVBoxLayout, children, options);
}

QWidget *Scrollable(QWidget *content)
{
    auto *area = new ScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // its content is reached with Tab, and scrolled into view by it
    return area;
}
