#pragma once

class QUrl;

/// The door to the programs outside this process.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens a page in the default browser, or a file with its default application. Whether that
    /// worked is only known there.
    virtual bool open(const QUrl &url);
};
