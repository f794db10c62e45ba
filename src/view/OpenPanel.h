#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

class QWidget;

enum class ModalResponse { Cancel = 0, OK = 1 };

/// The panel in which a person picks files to open. A panel is used once and belongs to the window
/// that it is modal for: it ends with that window, and then answers nobody.
class OpenPanel : public QObject {
public:
    using QObject::QObject;

    /// Extensions without the dot, in any letter case; empty allows every file.
    void setAllowedFileTypes(const QStringList &extensions) { m_allowedFileTypes = extensions; }
    void setAllowsMultipleSelection(bool allows) { m_allowsMultipleSelection = allows; }
    void setCanChooseDirectories(bool can) { m_canChooseDirectories = can; }
    void setCanChooseFiles(bool can) { m_canChooseFiles = can; }

    /// Shows the panel and returns; `ended` is called when the person has closed it.
    virtual void runModal(std::function<void(ModalResponse)> ended) = 0;

    /// What was picked; nothing when what was picked, or typed by hand, isn't allowed.
    virtual std::optional<QUrl> url() const = 0;

protected:
    bool allows(const QString &path) const;
    bool allowsName(const QString &path) const; ///< of a file; without a look at what stands there

    QStringList m_allowedFileTypes;
    bool m_allowsMultipleSelection = false;
    bool m_canChooseDirectories = false;
    bool m_canChooseFiles = true;
};

/// The desktop's own panel where it has one, else Qt's. These look at folders while the window waits; as
/// long as one of those doesn't answer, the place of the file is typed instead.
OpenPanel *newOpenPanel(QWidget *window);
