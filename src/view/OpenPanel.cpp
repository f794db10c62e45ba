#include "view/OpenPanel.h"

#include "platform/FileName.h"
#include "platform/Mounts.h"
#include "platform/Respondent.h"
#include "view/TypedOpenPanel.h"
#include "view/Unwinding.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

#include <algorithm>
#include <map>

namespace {

class SystemOpenPanel : public OpenPanel {
    Q_DECLARE_TR_FUNCTIONS(OpenPanel)

public:
    explicit SystemOpenPanel(QWidget *window)
        : OpenPanel(window)
        , m_window(window)
    {
    }

    void runModal(std::function<void(ModalResponse)> ended) override
    {
        m_dialog = new QFileDialog(m_window);
        m_dialog->setWindowTitle(tr("開く")); // the desktop's own dialog has none by itself
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setAcceptMode(QFileDialog::AcceptOpen);
        m_dialog->setOption(QFileDialog::HideNameFilterDetails);
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

    QWidget *m_window;
    QFileDialog *m_dialog = nullptr;
};

// Asks those who might not answer before it becomes one panel or the other.
class CautiousOpenPanel : public OpenPanel {
public:
    explicit CautiousOpenPanel(QWidget *window)
        : OpenPanel(window)
        , m_window(window)
    {
    }

    void runModal(std::function<void(ModalResponse)> ended) override
    {
        m_ended = std::move(ended);
        if (!isOnlyOne())
            return end(ModalResponse::Cancel);
        std::vector<std::string> mounts = Mounts::remote();
        mounts.resize(std::min(mounts.size(), mostMounts));
        m_awaited = int(mounts.size());
        if (m_awaited == 0)
            return become(new SystemOpenPanel(m_window));
        for (const std::string &mount : mounts)
            ask(mount);
    }

    std::optional<QUrl> url() const override { return m_panel->url(); }

private:
    static constexpr std::size_t mostMounts = 32;

    void ask(const std::string &mount)
    {
        static std::map<std::string, Respondent> respondents;
        const auto answers = [mount] { return Mounts::ask(mount), true; };
        respondents[mount].ask(this, answers, [this, mount](bool answered) {
            if (!answered)
                m_silent += FileName::text(mount);
            if (--m_awaited > 0)
                return;
            if (m_silent.isEmpty())
                become(new SystemOpenPanel(m_window));
            else
                become(new TypedOpenPanel(m_silent, m_window));
        });
    }

    void become(OpenPanel *panel)
    {
        m_panel = panel;
        panel->setAllowedFileTypes(m_allowedFileTypes);
        panel->setAllowsMultipleSelection(m_allowsMultipleSelection);
        panel->setCanChooseDirectories(m_canChooseDirectories);
        panel->setCanChooseFiles(m_canChooseFiles);
        panel->runModal([this](ModalResponse response) { end(response); });
    }

    void end(ModalResponse response)
    {
        m_ended(response);
        deleteLater();
    }

    // The window isn't blocked yet while we ask.
    bool isOnlyOne() const
    {
        const QObjectList &others = m_window->children();
        return std::none_of(others.begin(), others.end(), [this](const QObject *other) {
            return other != this && dynamic_cast<const CautiousOpenPanel *>(other);
        });
    }

    QWidget *m_window;
    std::function<void(ModalResponse)> m_ended;
    OpenPanel *m_panel = nullptr;
    QStringList m_silent;
    int m_awaited = 0;
};

} // namespace

bool OpenPanel::allows(const QString &path) const
{
    return QFileInfo(path).isDir() ? m_canChooseDirectories : allowsName(path);
}

bool OpenPanel::allowsName(const QString &path) const
{
    return m_canChooseFiles
        && (m_allowedFileTypes.isEmpty()
            || m_allowedFileTypes.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive));
}

OpenPanel *newOpenPanel(QWidget *window)
{
    return new CautiousOpenPanel(window);
}
