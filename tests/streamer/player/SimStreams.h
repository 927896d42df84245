#pragma once
#include <httplib.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

/// Addresses of streams from a simulated service of its own, whose tracks last two seconds.
class SimStreams
{
public:
    SimStreams() : m_server(options())
    {
        std::string error;
        m_isStarted = m_server.start(&error);
        const QJsonObject tracks =
            QJsonDocument::fromJson(QByteArray::fromStdString(m_server.tracksBody(50))).object();
        for (const QJsonValue& track : tracks["items"].toArray())
            if (track.toObject()["allowStreaming"].toBool())
                m_tracks.append(track);
    }
    bool isStarted() const { return m_isStarted && !m_tracks.isEmpty(); }
    QString baseUrl() const { return QString::fromStdString(m_server.baseUrl()); }
    kelosim::SimServer& server() { return m_server; }

    /// The address of one of the first tracks that can be streamed, as playback info hands it out;
    /// empty when refused.
    QString address(int number)
    {
        httplib::Client client(m_server.baseUrl());
        const qint64 id = qint64(m_tracks.at(number).toObject()["id"].toDouble());
        const std::string path = "/v1/tracks/" + std::to_string(id) +
                                 "/playbackinfopostpaywall?playbackmode=STREAM&assetpresentation="
                                 "FULL&audioquality=LOSSLESS";
        const auto answer =
            client.Get(path.c_str(), {{"Authorization", "Bearer " + m_server.issueToken()}});
        if (!answer || answer->status != 200)
            return {};
        const QJsonObject info =
            QJsonDocument::fromJson(QByteArray::fromStdString(answer->body)).object();
        const QByteArray manifest = QByteArray::fromBase64(info["manifest"].toString().toUtf8());
        return QJsonDocument::fromJson(manifest).object()["urls"].toArray().first().toString();
    }

private:
    static kelosim::SimOptions options()
    {
        kelosim::SimOptions options;
        options.faults = {"short-tracks=2"};
        return options;
    }

    kelosim::SimServer m_server;
    bool m_isStarted = false;
    QJsonArray m_tracks;
};
