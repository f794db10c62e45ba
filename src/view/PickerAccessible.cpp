#include "view/PickerAccessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>

namespace {

class PickerAccessible : public QAccessibleWidget {
public:
    explicit PickerAccessible(QComboBox *picker)
        : QAccessibleWidget(picker, QAccessible::ComboBox)
        , m_picker(*picker)
    {
    }

    // The list belongs to a window of its own, which makes it no child of the widget.
    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override { return index == 0 ? list() : nullptr; }
    int indexOfChild(const QAccessibleInterface *child) const override { return child == list() ? 0 : -1; }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return isOpen() && list()->rect().contains(x, y) ? list() : nullptr;
    }

    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? m_picker.currentText() : QAccessibleWidget::text(what);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = isOpen();
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString &action) override
    {
        if (action != showMenuAction() && action != pressAction())
            QAccessibleWidget::doAction(action);
        else if (isOpen())
            m_picker.hidePopup();
        else
            m_picker.showPopup();
    }

private:
    QAccessibleInterface *list() const { return QAccessible::queryAccessibleInterface(m_picker.view()); }
    bool isOpen() const { return m_picker.view()->isVisible(); }

    QComboBox &m_picker;
};

} // namespace

QAccessibleInterface *pickerAccessible(const QString &, QObject *object)
{
    auto *picker = qobject_cast<QComboBox *>(object);
    return picker && !picker->isEditable() ? new PickerAccessible(picker) : nullptr;
}
