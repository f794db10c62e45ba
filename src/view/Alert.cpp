#include "view/Alert.h"

#include "view/Modifiers.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <memory>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(Alert)
};

// An alert that is closed because the application is about to end looks the same as one that its user
// closes.
class Alert : public QMessageBox {
public:
    explicit Alert(QWidget *window)
        : QMessageBox(window)
    {
        qApp->installEventFilter(this);
    }

    /// Somebody did it: what ends it with its window or with the application doesn't press a button.
    bool isAnswered() const { return !m_endsWithApplication && (m_isClosed || clickedButton()); }

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (event->type() == QEvent::Quit && receiver == qApp)
            m_endsWithApplication = true;
        return QMessageBox::eventFilter(receiver, event);
    }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        m_isClosed = true;
        QMessageBox::closeEvent(event);
    }

private:
    bool m_endsWithApplication = false;
    bool m_isClosed = false;
};

QMessageBox *newAlert(const QString &title, const AlertActions &act, State<bool> &showAlert,
                      QWidget *window)
{
    auto *alert = new Alert(window);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowModality(Qt::WindowModal);
    alert->setWindowTitle(title);
    alert->setTextFormat(Qt::PlainText);
    alert->setText(title);
    // Buttons of this role stand in the order in which they are added, whatever the desktop's style.
    QPushButton *ok = alert->addButton(Titles::tr("OK"), QMessageBox::ActionRole);
    QPushButton *cancel = alert->addButton(Titles::tr("キャンセル"), QMessageBox::ActionRole);
    alert->setDefaultButton(ok);
    alert->setEscapeButton(cancel);
    onKeys({quitKey()}, &QCoreApplication::quit, alert);
    QObject::connect(alert, &QDialog::finished, alert, [alert, ok, act, &showAlert] {
        if (alert->isAnswered())
            (alert->clickedButton() == ok ? act.ok : act.cancel)();
        showAlert = false;
    });
    return alert;
}

} // namespace

QWidget *alertWhen(State<bool> &showAlert, const State<QString> &alertMessage, AlertActions act,
                   QWidget *widget)
{
    const auto shown = std::make_shared<QPointer<QMessageBox>>();
    const auto present = [&showAlert, &alertMessage, act = std::move(act), widget, shown](bool show) {
        QPointer<QMessageBox> &alert = *shown;
        if (show) {
            alert = newAlert(alertMessage, act, showAlert, widget->window());
            alert->open();
        } else if (alert && alert->isVisible()) {
            // Nobody has pressed anything. Others still hear of its end: who speaks for it, for one.
            QObject::disconnect(alert, &QDialog::finished, alert, nullptr);
            alert->close();
        }
    };
    follow(
        widget, [&showAlert] { return showAlert.value(); }, present);
    return widget;
}
