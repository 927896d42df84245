#pragma once
#include <functional>
#include <memory>
#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace kelosim {
class SimServer;
}

/// How a command ended.
struct Outcome
{
    int status = -1;
    QByteArray out;
    QByteArray err;

    QJsonObject json() const;
};

/// A `kelo serve` process of a test, with a settings file and state of its own. Ends with the test.
class Streamer
{
public:
    ~Streamer();

    /// Settings that name the simulated service, with short deadlines.
    static QByteArray settingsFor(const kelosim::SimServer& sim);

    /// Starts with a settings text and further arguments; false with what it said on stderr.
    bool start(const QByteArray& settings, const QStringList& arguments = {});
    /// SIGTERM unless it has ended; the exit status, -1 when it took longer than 2 s (10 s under a
    /// sanitizer), -2 after a crash.
    int stop();
    bool isRunning() const;
    QString url() const { return m_url; }
    QString stateFolder() const { return m_dir.filePath(QStringLiteral("state")); }
    /// What it has said on stderr so far.
    QByteArray errors() const;

    /// Runs `kelo` against this streamer.
    Outcome kelo(const QStringList& arguments) const;
    /// Runs `kelo` with no more than the arguments.
    static Outcome run(const QStringList& arguments);
    /// `kelo rows PATH --json`.
    QJsonObject rows(const QString& path) const;
    /// The error text of `kelo rows PATH`, which must fail.
    QString rowsError(const QString& path) const;

    /// Starts a login and waits until the streamer says that it is logged in.
    bool login();

    /// An answer of the HTTP API.
    struct Answer
    {
        int status = 0;
        QJsonObject body;
    };
    Answer get(const QString& path) const;
    Answer post(const QString& path, const QByteArray& json) const;

    /// Reads events until one of this name satisfies the predicate; false on time-out.
    using Predicate = std::function<bool(const QJsonObject&)>;
    bool waitForEvent(const QByteArray& name, const Predicate& predicate) const;

private:
    QTemporaryDir m_dir;
    std::unique_ptr<QProcess> m_process;
    QString m_url;
};
