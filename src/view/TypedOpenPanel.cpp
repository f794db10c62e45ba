#include "view/TypedOpenPanel.h"

#include "view/Unwinding.h"

#include <QDir>
#include <QInputDialog>
#include <QLabel>

TypedOpenPanel::TypedOpenPanel(const QStringList &silentFolders, QWidget *window)
    : OpenPanel(window)
    , m_dialog(new QInputDialog(window))
{
    m_dialog->setWindowTitle(tr("開く"));
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setLabelText(
        tr("フォルダが応答しないため、一覧を表示できません:\n%1\n\nファイルの場所を入力してください:")
            .arg(silentFolders.join(u'\n')));
    m_dialog->setTextValue(QDir::homePath() + u'/');
    m_dialog->findChild<QLabel *>()->setTextFormat(Qt::PlainText);
}

void TypedOpenPanel::runModal(std::function<void(ModalResponse)> ended)
{
    connect(m_dialog, &QDialog::finished, this, [this, ended = std::move(ended)](int result) {
        ended(result == QDialog::Accepted ? ModalResponse::OK : ModalResponse::Cancel);
        deleteWhenUnwound(m_dialog);
        deleteLater();
    });
    m_dialog->open();
}

std::optional<QUrl> TypedOpenPanel::url() const
{
    QString path = m_dialog->textValue();
    if (path.startsWith(QStringLiteral("~/")))
        path.remove(0, 2);
    path = QDir::cleanPath(QDir::home().absoluteFilePath(path));
    return allowsName(path) ? std::optional(QUrl::fromLocalFile(path)) : std::nullopt;
}
