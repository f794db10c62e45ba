#pragma once

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

/// A file or folder of the sidebar's tree. It is a folder exactly when it has a list of children,
/// be it an empty one.
struct Node {
    const QUuid id; ///< new and random for every node made
    const QString name;
    std::optional<std::vector<Node>> children;

    explicit Node(const QString &name, std::optional<std::vector<Node>> children = std::nullopt);
};

/// The sample tree: made at its first use and the same for the rest of the run.
const std::vector<Node> &sampleData();
