#include <cmath>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/KeloModule.h>
#include <kelo/PlayLogicInterface.h>
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

/// A row that plays.
class StationNode : public CMUINode
{
    Q_OBJECT
public:
    using CMUINode::CMUINode;

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Audio_; }
};

/// Serves the paths below /radio: a list of stations, and an action that finds one more.
class RadioWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    explicit RadioWorker(const QVariantHash& settings)
        : CMNodesWorker(settings, QStringLiteral("radio"))
    {
        auto* top = CMListRowsNode::create(nodes(), addPrefix(QString()));
        top->setTitle(KELO_TR("Radio"));

        m_stations = CMListRowsNode::create(nodes(), addPrefix(QStringLiteral("stations")));
        m_stations->setTitle(KELO_TR("Stations"));
        m_stations->setPlayable(true);
        top->rowsAppend(m_stations->path());

        auto* scan = CMActivateNode::create(nodes(), addPrefix(QStringLiteral("scan")), this,
                                            SLOT(on_scan(CMSetDataRequest)), Qt::QueuedConnection);
        scan->setTitle(KELO_TR("Scan"));
        top->rowsAppend(scan->path());

        auto* play = CMActivateNode::create(nodes(), addPrefix(QStringLiteral("play")), this,
                                            SLOT(on_play(CMSetDataRequest)), Qt::QueuedConnection);
        play->setActivateRole(KeloRoles::PrePlay());

        const QVariantHash own = settings.value(QStringLiteral("settings")).toHash();
        const QStringList addresses = own.value(QStringLiteral("stations")).toStringList();
        for (const QString& address : addresses)
            addStation(QUrl(address).fileName(), address);
        addTone(440);
    }

private Q_SLOTS:
    void on_scan(const CMSetDataRequest& request);
    void on_play(const CMSetDataRequest& request);

private:
    void addStation(const QString& title, const QString& address);
    void addTone(int hertz);

    CMListRowsNode* m_stations;
    QStringList m_addresses; ///< by the number of the station
    QTemporaryDir m_tones;
};

void RadioWorker::addStation(const QString& title, const QString& address)
{
    const QString number = QString::number(m_addresses.size());
    KeloMetaData metaData;
    metaData.setServiceID(serviceId());
    metaData.setPrePlayPath(addPrefix(QStringLiteral("play")));
    metaData.setPrePlayData(number);
    metaData.setContentPlayContextPath(m_stations->path());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);

    CMPath path = m_stations->path();
    path.appendSubpath(number);
    auto* station = new StationNode(path);
    station->setTitle(title);
    station->setMediaData(mediaData);
    station->setNodes(nodes()); // which own it from here on
    m_addresses.append(address);
    m_stations->rowsAppend(path);
}

void RadioWorker::on_scan(const CMSetDataRequest& request)
{
    constexpr int mostStations = 32;
    if (m_addresses.size() >= mostStations) {
        request.reply().setError(CMError(KELO_TR("No more stations")));
        return;
    }
    addTone(440 + 55 * m_addresses.size());
    request.reply().setValue(QVariant());
}

void RadioWorker::on_play(const CMSetDataRequest& request)
{
    KeloRoles item(KeloHash(request.value().toHash()));
    KeloMediaData mediaData = item.mediaData();
    KeloMetaData metaData = mediaData.metaData();
    bool isNumber = false;
    const QString address = m_addresses.value(metaData.prePlayData().toInt(&isNumber));
    auto* player = PlayLogicInterface::instance(CMPath(QStringLiteral("/player")));
    if (!isNumber || address.isEmpty() || !player) {
        request.reply().setError(CMError(KELO_TR("There is no such station")));
        return;
    }
    KeloResource resource;
    resource.setUri(address);
    mediaData.setResources({resource});
    metaData.setStartTime(metaData.prePlayTimeOffset());
    mediaData.setMetaData(metaData);
    item.setMediaData(mediaData);
    item.setPath(request.path()); // by which the player knows what it waits for
    request.reply().setValue(player->play(item, 0));
}

/// Writes ten seconds of a tone as a WAV file, and adds it as a station.
void RadioWorker::addTone(int hertz)
{
    constexpr quint32 rate = 44100;
    constexpr quint32 bytes = 10 * rate * 2;
    QFile file(m_tones.filePath(QStringLiteral("%1.wav").arg(hertz)));
    if (!file.open(QIODevice::WriteOnly))
        return;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + bytes);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1); // PCM, one channel
    out << rate << quint32(2 * rate) << quint16(2) << quint16(16);
    out.writeRawData("data", 4);
    out << bytes;
    for (quint32 i = 0; i < bytes / 2; ++i)
        out << qint16(8000 * std::sin(2 * M_PI * hertz * i / rate));
    addStation(QStringLiteral("Tone %1 Hz").arg(hertz),
               QUrl::fromLocalFile(file.fileName()).toString());
}

KELO_MODULE_INTERFACE

extern "C" Q_DECL_EXPORT void* worker_create(const char*, void* settings)
{
    return static_cast<CMAbstractWorker*>(
        new RadioWorker(*static_cast<const QVariantHash*>(settings)));
}

#include "radio.moc"
