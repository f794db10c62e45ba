#pragma once

#include <string>

/// What the system's list of users says of the one who runs this process. Asking may take as long as the
/// directory service that keeps the list.
struct Account {
    std::string name;
    std::string home;

    /// Both empty when the list knows nobody of that number.
    static Account own();
};
