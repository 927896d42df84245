#pragma once
#include <chrono>
#include <kelo/TrString.h>

/// What clients wait for when an answer is late. A plain value; any thread makes one, at the cost
/// of one short lock.
class LateAnswer
{
public:
    /// Who is waited for: nobody; the music service, which has a call of the module; else the
    /// streamer itself, a module that is busy for one.
    enum class From { Nobody, Service, Streamer };

    /// An answer is late after this time.
    static constexpr std::chrono::seconds patience{2};

    LateAnswer() = default;
    /// As it is now: of the requests from outside that are unanswered, the oldest counts.
    static LateAnswer now();

    bool isSet() const { return m_from != From::Nobody; }
    /// "service" or "streamer".
    QString from() const;
    /// How long the oldest request waits.
    qint64 seconds() const;
    /// For people, as "waiting for the music service, 12 s".
    TrString text() const;

    /// Whether it is the same waiting; time goes on in it.
    bool operator==(const LateAnswer& other) const
    {
        return m_from == other.m_from && m_since == other.m_since;
    }

private:
    From m_from = From::Nobody;
    std::chrono::steady_clock::time_point m_since; ///< when the oldest request came
};
