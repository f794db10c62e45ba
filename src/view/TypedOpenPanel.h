#pragma once

#include "view/OpenPanel.h"

class QInputDialog;

/// A panel in which the place of a file is typed: for when looking at folders would hold up the window, as
/// some of them don't answer. Looks at nothing itself.
class TypedOpenPanel : public OpenPanel {
    Q_OBJECT

public:
    TypedOpenPanel(const QStringList &silentFolders, QWidget *window);

    void runModal(std::function<void(ModalResponse)> ended) override;
    std::optional<QUrl> url() const override;

private:
    QInputDialog *m_dialog;
};
