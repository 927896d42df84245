#pragma once
#include "ModuleWorld.h"
#include <condition_variable>
#include <mutex>

namespace httplib {
class Client;
}

/// A module whose edits are watched at the service: reads what the service holds, and edits it as
/// another client would, past the module.
class EditWorld : public ModuleWorld
{
public:
    EditWorld();
    ~EditWorld();

    /// Sends a set-data request from outside and waits for its end.
    CMSetDataRequest set(const QString& path, const QVariant& value = 1,
                         const QString& role = KeloRoles::Value());
    /// Asks for a node's data and waits.
    CMGetDataRequest data(const QString& path, const QStringList& roles);

    /// The service's own answers, without the module.
    QJsonObject read(const QString& path);
    QJsonObject post(const QString& path, const QByteArray& body, const QString& etag = QString());
    /// Ids of the tracks of a playlist, as the service holds them.
    QList<qint64> tracksOf(const QString& playlistId);
    QString newPlaylist(const QByteArray& title, const QList<qint64>& tracks);
    /// Ids of tracks that can be played.
    QList<qint64> someTracks(int count);
    QString userPath(const QString& subPath) const;
    /// Methods and paths that arrived since the last reset, parameters and tags left out.
    QStringList requestLog();

private:
    std::unique_ptr<httplib::Client> m_client;
    std::string m_token;
};

/// A client that has a rows path open, and keeps the notices it gets.
class OpenRows
{
public:
    explicit OpenRows(const CMPath& path);
    ~OpenRows();
    /// The next notice as text: "close", "reset", "-4 of 7"; empty when none comes.
    QString next();
    /// Notices that have come and were not read.
    int pending() const;

private:
    struct Notices
    {
        std::mutex mutex;
        std::condition_variable changed;
        QStringList texts;
    };
    std::shared_ptr<Notices> m_notices;
    quint64 m_id;
};
