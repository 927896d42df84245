#pragma once

#include "client/EventParser.h"

#include <chrono>
#include <functional>
#include <memory>
#include <QJsonObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace httplib {
class Client;
}

namespace cli {

/// What came back from the streamer.
struct ApiReply
{
    enum class Outcome {
        Done,        ///< 2xx
        Refused,     ///< the streamer answered with an error; message says which
        Unreachable, ///< no answer at all, or not to the end
    };

    Outcome outcome = Outcome::Unreachable;
    QByteArray body;      ///< as it came
    QJsonObject document; ///< the body; of an error the problem document, where there is one
    QString message;      ///< for people, fit for a terminal; empty when done

    bool isDone() const { return outcome == Outcome::Done; }
    /// An answer that a command gives itself, because the streamer's did not hold what it needs.
    static ApiReply refusal(const QString& message);
};

using Query = QVector<QPair<QString, QString>>;

/// The streamer's HTTP API, as calls that block. Owned by main(); one thread at a time.
/// It holds one connection open between calls and has a second one for an event stream. Nothing
/// throws; it does not repeat calls.
class ApiClient
{
public:
    /// \p server is a checked address, see isServerAddress().
    explicit ApiClient(const QString& server);
    ~ApiClient();

    /// True for `http://HOST[:PORT]` or https without a path.
    static bool isServerAddress(const QString& text);

    const QString& server() const { return m_server; }
    /// How long a call may go without a word of the streamer, from now on; before, longer than any
    /// deadline of its own.
    void limitSilence(std::chrono::seconds limit);

    /// \p path is below /api/v1, "rows". Query values are encoded here.
    [[nodiscard]] ApiReply get(const QString& path, const Query& query = {});
    /// A page of rows; \p roles are names with commas, empty: the streamer's usual ones.
    [[nodiscard]] ApiReply rows(const QString& path, int from, int to,
                                const QString& roles = QString());
    /// Sends a JSON value to a node; \p role says what it is for, where that is not its value.
    [[nodiscard]] ApiReply set(const QString& path, const QByteArray& value,
                               const QString& role = QString());
    [[nodiscard]] ApiReply post(const QString& path, const QByteArray& body = "{}",
                                const Query& query = {});
    [[nodiscard]] ApiReply remove(const QString& path, const Query& query = {});
    /// A path beside the API, "/healthz"; its body need not be JSON.
    [[nodiscard]] ApiReply probe(const QString& path);

    /// Reads events, with \p paths open, until the stream ends or \p onEvent returns
    /// false. \p onOpen is called once the streamer has opened them. Done when the stream ended in
    /// order. \p more says what else is wanted.
    [[nodiscard]] ApiReply events(const QStringList& paths, const std::function<void()>& onOpen,
                                  std::function<bool(const ServerEvent&)> onEvent,
                                  const Query& more = {});

private:
    const QString m_server;
    std::unique_ptr<httplib::Client> m_client;
};

} // namespace cli
