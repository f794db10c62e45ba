#include "view/Controls.h"

#include "view/Modifiers.h"
#include "view/PickerAccessible.h"
#include "view/Stacks.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QStringListModel>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// An ampersand in a title is a character, not the mark of a mnemonic.
QString verbatim(QString title)
{
    return title.replace(u'&', QStringLiteral("&&"));
}

QLabel *label()
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    return label;
}

// The visible title names the control for a screen reader too.
QLabel *titleOf(QWidget *control, const QString &title)
{
    QLabel *text = label();
    text->setText(title);
    text->setBuddy(control);
    control->setAccessibleName(title);
    return text;
}

// As wide as its title needs; a style's least width would cost a row of them the room that it has.
class CompactButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override
    {
        constexpr int padding = 24;
        const QSize styles = QPushButton::sizeHint();
        return {std::min(styles.width(), fontMetrics().horizontalAdvance(text()) + padding),
                styles.height()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

// The rows of a pop-up list; a row that has no room says itself in its tool tip.
class PickerRows : public QStringListModel {
public:
    using QStringListModel::QStringListModel;

    void showIcons(const QHash<QString, QIcon> &icons)
    {
        m_icons = icons;
        emit dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
    }

    QVariant data(const QModelIndex &row, int role) const override
    {
        if (role == Qt::DecorationRole)
            return m_icons.value(row.data().toString());
        return QStringListModel::data(row, role == Qt::ToolTipRole ? Qt::DisplayRole : role);
    }

private:
    QHash<QString, QIcon> m_icons; // by the name of the row
};

// The first icon costs the reading of a whole icon theme, so it waits until somebody comes to choose.
class PickerList : public QComboBox {
public:
    PickerList(std::function<QStringList()> names, std::function<QIcon(const QString &)> icon)
        : m_names(std::move(names))
        , m_icon(std::move(icon))
    {
        // As wide as a few characters, whatever the rows; what is longer is cut short.
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(8);
        setModel(m_rows);
        view()->setTextElideMode(Qt::ElideMiddle);
        view()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(this, &QComboBox::currentTextChanged, this, &PickerList::tellChoice);
    }

    void setRows(const QStringList &names) { m_rows->setStringList(names); }

    void showPopup() override
    {
        showIcons();
        view()->window()->setMaximumWidth(std::max(width(), widestPopup));
        view()->setMinimumWidth(
            std::min(view()->sizeHintForColumn(0) + view()->frameWidth() * 2, widestPopup));
        QComboBox::showPopup();
    }

protected:
    void initStyleOption(QStyleOptionComboBox *option) const override
    {
        QComboBox::initStyleOption(option);
        const QRect field =
            style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
        const int icon = option->currentIcon.isNull() ? 0 : option->iconSize.width() + 4;
        option->currentText =
            fontMetrics().elidedText(option->currentText, Qt::ElideRight, field.width() - icon - 2);
    }

    void focusInEvent(QFocusEvent *event) override
    {
        showIcons();
        QComboBox::focusInEvent(event);
    }

private:
    // A screen reader hears of the choice also while the list is closed. It isn't made the current row
    // of a list that isn't shown: the focus would seem to be there.
    void tellChoice(const QString &row)
    {
        setAccessibleDescription(row);
        view()->selectionModel()->select(m_rows->index(currentIndex()),
                                         QItemSelectionModel::ClearAndSelect);
    }

    void showIcons()
    {
        if (!m_icon)
            return;
        const auto icons = [names = m_names, icon = std::exchange(m_icon, nullptr)] {
            QHash<QString, QIcon> found;
            for (const QString &name : names())
                found.insert(name, icon(name));
            return found;
        };
        follow(this, icons, [this](const auto &found) { m_rows->showIcons(found); });
    }

    static constexpr int widestPopup = 480; // longer names are cut short there, too

    std::function<QStringList()> m_names;
    std::function<QIcon(const QString &)> m_icon; // until it is first needed
    PickerRows *m_rows = new PickerRows(this);
};

} // namespace

QWidget *Text(const QString &text)
{
    QLabel *shown = label();
    shown->setText(text);
    return shown;
}

QWidget *Text(std::function<QString()> text)
{
    QLabel *shown = label();
    follow(shown, std::move(text), [shown](const QString &value) { shown->setText(value); });
    return shown;
}

QWidget *Button(const QString &title, std::function<void()> action)
{
    auto *button = new CompactButton(verbatim(title));
    button->setAccessibleName(title);
    QObject::connect(button, &QPushButton::clicked, button, std::move(action));
    return button;
}

QWidget *Toggle(const QString &title, const Binding<bool> &isOn)
{
    auto *box = new QCheckBox(verbatim(title));
    box->setAccessibleName(title);
    follow(box, isOn.get, [box](bool on) { box->setChecked(on); });
    // A screen reader toggles without a click, so it is the change that counts; what has just been
    // shown is none.
    QObject::connect(box, &QCheckBox::toggled, box, [isOn](bool on) {
        if (on != isOn.get())
            isOn.set(on);
    });
    return box;
}

QWidget *Slider(const QString &title, Binding<double> value, const SliderRange &range)
{
    auto *slider = new QSlider(Qt::Horizontal);
    // Counted in steps from nought, so that what a screen reader reads out is the value itself.
    slider->setRange(int(std::lround(range.from / range.step)), int(std::lround(range.to / range.step)));
    slider->setPageStep(5);
    slider->setMinimumWidth(60);
    slider->setAccessibleDescription(range.unit);
    follow(slider, value.get,
           [slider, step = range.step](double now) { slider->setValue(int(std::lround(now / step))); });
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [step = range.step, set = std::move(value.set)](int steps) { set(steps * step); });
    QWidget *row = HStack({titleOf(slider, title), slider});
    row->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return row;
}

QWidget *Picker(const QString &title, Binding<QString> selection, std::function<QStringList()> rows,
                std::function<QIcon(const QString &)> icon)
{
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(pickerAccessible);
        return true;
    }();
    auto *list = new PickerList(rows, std::move(icon));
    list->view()->setAccessibleName(title);
    const auto showSelection = [list](const QString &name) { list->setCurrentIndex(list->findText(name)); };
    follow(list, std::move(rows), [list, showSelection, get = selection.get](const QStringList &names) {
        list->setRows(names);
        showSelection(get());
    });
    follow(list, selection.get, showSelection);
    QObject::connect(list, &QComboBox::textActivated, list, std::move(selection.set));

    QLabel *heading = titleOf(list, title);
    return VStack({enlarged(17.0 / 13, heading), list}, {.spacing = 2});
}
