#pragma once
#include "ScheduledService.h"
#include <random>
#include <vector>

/// One thing that a schedule does. What the numbers mean is told by the kind.
struct Step
{
    enum Kind {
        Ask,     ///< client `who` makes the request `what` of asks()
        Release, ///< the service answers one held request
        Drop,    ///< the service closes one held request's connection
        Login,   ///< as the account `who`; after a logout where one is logged in
        Logout,
        Renew,    ///< another token is published
        Expire,   ///< the service refuses the token that is published
        Settings, ///< another country code, another address
        Restart,  ///< the worker is deleted, and made anew
        Settle    ///< waits until nothing moves but what is held
    };
    Kind kind;
    int who;
    int what;
};

/// A request that clients make. "%t" in the path stands for the step's number, which is the id of a
/// track, say.
struct Ask
{
    enum Kind { Rows, Data, Set, Play };
    Kind kind;
    const char* path;
    /// Part of the service's address whose rows are the answer; null when they are the module's.
    const char* served = nullptr;
    const char* value = "1"; ///< of Set and Play, "%t" as in the path
    bool isSafe = true;      ///< whether it succeeds where nothing goes wrong
};
const std::vector<Ask>& asks();

/// A random sequence of steps, made from one number; the same number makes the same one.
struct Schedule
{
    static constexpr int mostClients = 8;

    explicit Schedule(std::uint64_t seed);
    /// The steps as texts, one a line.
    std::string toString() const;

    ServiceMood mood;
    bool isImpatient = false; ///< the host gives requests up at once
    std::vector<Step> steps;
};
