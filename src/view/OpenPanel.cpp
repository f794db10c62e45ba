#include "view/OpenPanel.h"

#include "view/Unwinding.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

namespace {

class SystemOpenPanel : public OpenPanel {
    Q_DECLARE_TR_FUNCTIONS(OpenPanel)

public:
    explicit SystemOpenPanel(QWidget *window)
        : OpenPanel(window)
        , m_dialog(new QFileDialog(window))
    {
        m_dialog->setWindowTitle(tr("開く")); // the desktop's own dialog has none by itself
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setAcceptMode(QFileDialog::AcceptOpen);
        m_dialog->setOption(QFileDialog::HideNameFilterDetails);
    }

    void runModal(std::function<void(ModalResponse)> ended) override
    {
        m_dialog->setFileMode(fileMode());
        if (!m_allowedFileTypes.isEmpty())
            m_dialog->setNameFilter(nameFilter());
        connect(m_dialog, &QDialog::finished, this, [this, ended = std::move(ended)](int result) {
            ended(result == QDialog::Accepted ? ModalResponse::OK : ModalResponse::Cancel);
            deleteWhenUnwound(m_dialog);
            deleteLater();
        });
        m_dialog->open();
        fitColumns();
    }

    std::optional<QUrl> url() const override
    {
        const QStringList files = m_dialog->selectedFiles();
        if (files.size() != 1 || !allows(files.first()))
            return std::nullopt;
        return QUrl::fromLocalFile(files.first());
    }

private:
    QFileDialog::FileMode fileMode() const
    {
        if (!m_canChooseFiles)
            return QFileDialog::Directory;
        return m_allowsMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
    }

    // As wide as what is in them; Qt's widths are those that it takes in English.
    void fitColumns()
    {
        const auto *list = m_dialog->findChild<QTreeView *>();
        if (!list)
            return; // the desktop's own dialog
        QHeaderView *columns = list->header();
        columns->setResizeContentsPrecision(0); // only the rows in sight, lest a large folder take long
        columns->setSectionResizeMode(QHeaderView::ResizeToContents);
        columns->setSectionResizeMode(0, QHeaderView::Stretch);
    }

    // "*.[tT][xX][tT]": desktops differ in whether a pattern minds the letter case.
    QString nameFilter() const
    {
        QStringList patterns;
        for (const QString &extension : m_allowedFileTypes) {
            QString pattern = QStringLiteral("*.");
            for (const QChar c : extension)
                pattern += u'[' + QString(c.toLower()) + c.toUpper() + u']';
            patterns += pattern;
        }
        const QString types = m_allowedFileTypes.join(QStringLiteral(", ")).toUpper();
        return tr("%1 ファイル").arg(types) + QStringLiteral(" (") + patterns.join(u' ') + u')';
    }

    QFileDialog *m_dialog;
};

} // namespace

bool OpenPanel::allows(const QString &path) const
{
    const QFileInfo file(path);
    if (file.isDir())
        return m_canChooseDirectories;
    return m_canChooseFiles
        && (m_allowedFileTypes.isEmpty()
            || m_allowedFileTypes.contains(file.suffix(), Qt::CaseInsensitive));
}

OpenPanel *newOpenPanel(QWidget *window)
{
    return new SystemOpenPanel(window);
}
