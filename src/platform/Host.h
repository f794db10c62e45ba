#pragma once

#include <QString>

/// The computer and the person at it.
class Host {
public:
    virtual ~Host() = default;
    /// The computer's name; empty when it has none.
    virtual QString name() const;
    /// The login name; empty when the system knows none. May take a second, and be asked on any thread.
    virtual QString userName() const;
};
