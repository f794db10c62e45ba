#pragma once

#include <string>

/// What the system's list of users says of the one who runs this process.
struct Account {
    std::string name;
    std::string home;

    /// Both empty when the list knows nobody of that number, or the directory service that keeps it doesn't
    /// answer within a second.
    static Account own();
};
