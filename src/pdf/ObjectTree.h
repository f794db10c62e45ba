#pragma once

#include "pdf/PdfFile.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Objects in a tree of a few levels, whatever their number: readers find one of them soon. What is full is
/// written and forgotten.
class ObjectTree {
public:
    struct Node {
        int number = 0;
        std::size_t leaves = 0; // below it
        std::vector<int> kids;
    };
    /// A node of that parent, as it is written.
    using Written = std::function<std::string(const Node &node, int parent)>;

    ObjectTree(PdfFile &file, std::size_t branches, Written written);

    /// The node that will have the next leaf.
    int nextParent() { return open(0).number; }
    void add(int leaf) { add(0, leaf, 1); }

    /// The root, which isn't written yet.
    Node finish();

private:
    Node &open(std::size_t level);
    void add(std::size_t level, int kid, std::size_t leaves);
    void close(std::size_t level);

    PdfFile &m_file;
    const std::size_t m_branches;
    const Written m_written;
    std::vector<Node> m_levels; // of each the last node, from the leaves' up
};

/// References to all of them.
std::string references(const std::vector<int> &objects);
