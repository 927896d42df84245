#pragma once
#include <chrono>
#include <kelo/TrString.h>

/// What clients wait for when an answer is late. A plain value; any thread makes one, at the cost
/// of one short lock.
struct LateAnswer
{
    /// Who is waited for: "service", the music service, which has a call of the module; else
    /// "streamer", a module that is busy for one; empty: nobody.
    QString from;
    std::chrono::steady_clock::time_point since; ///< when the oldest request came

    /// An answer is late after this time.
    static constexpr std::chrono::seconds patience{2};

    /// As it is now: of the requests from outside that are unanswered, the oldest counts.
    static LateAnswer now();

    bool isSet() const { return !from.isEmpty(); }
    /// How long the oldest request waits.
    qint64 seconds() const;
    /// For people, as "waiting for the music service, 12 s".
    TrString text() const;

    /// Whether it is the same waiting; time goes on in it.
    bool operator==(const LateAnswer& other) const
    {
        return from == other.from && since == other.since;
    }
};
