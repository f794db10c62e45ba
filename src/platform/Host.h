#pragma once

#include <QString>

/// The computer and the person at it.
class Host {
public:
    virtual ~Host() = default;
    virtual QString name() const;     ///< the computer's name; empty when it has none
    virtual QString userName() const; ///< the login name; empty when the system knows none
};
