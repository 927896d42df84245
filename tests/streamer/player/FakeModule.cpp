#include "FakeModule.h"
#include <chrono>
#include <kelo/KeloTidalConstants.h>
#include <kelo/PlayLogicInterface.h>

KeloRoles FakeModule::track(const CMPath& list, const QString& id)
{
    CMPath path = list;
    path.addParam("trackId", id);
    KeloMetaData metaData;
    metaData.setArtist("Artist " + id);
    metaData.setPrePlayPath(prePlayPath(id));
    metaData.setPrePlayData(id);
    metaData.setContentPlayContextPath(list);
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    KeloRoles roles = row(KeloRolesType::Audio_, "Track " + id);
    roles.setPath(path);
    roles.setMediaData(mediaData);
    return roles;
}

KeloRoles FakeModule::row(KeloRolesType::Enum type, const QString& title)
{
    KeloRoles roles;
    roles.setType(type);
    roles.setTitle(title);
    return roles;
}

KeloRoles FakeModule::item(const CMPath& path, const QString& id, const Answer& answer)
{
    KeloResource resource;
    resource.setUri(answer.uri.isEmpty() ? "fake:" + id : answer.uri);
    resource.setMimeType("audio/flac");
    resource.setMaxIdleTime(answer.maxIdleMs);
    KeloMetaData metaData;
    metaData.setAlbum("Album " + id);
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    KeloRoles roles = row(KeloRolesType::Audio_, "Track " + id);
    roles.setPath(path);
    roles.setMediaData(mediaData);
    return roles;
}

void FakeModule::addList(const CMPath& path, const QList<KeloRoles>& rows)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_lists[path.toEncoded()] = rows;
}

void FakeModule::removeList(const CMPath& path)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_lists.erase(path.toEncoded());
}

void FakeModule::setAnswer(const QString& id, const Answer& answer)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_answers[id] = answer;
}

bool FakeModule::waitForHeld()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return bool(m_held); });
}

void FakeModule::release()
{
    std::function<void()> held;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        held = std::exchange(m_held, nullptr);
    }
    if (held)
        held();
}

void FakeModule::holdRows()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_areRowsHeld = true;
}

void FakeModule::releaseRows()
{
    CMGetRowsRequest held;
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return !m_heldRows.isNull(); });
        held = std::exchange(m_heldRows, CMGetRowsRequest());
    }
    getRowsRequest(held);
}

QStringList FakeModule::asked()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_asked;
}

QString FakeModule::rowsAsked()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_rowsAsked, QStringList()).join(' ');
}

void FakeModule::getDataRequest(const CMGetDataRequest& request)
{
    request.reply().setError(CMError(CMError::NotFoundName(), TrString(QString("no data"))));
}

void FakeModule::getRowsRequest(const CMGetRowsRequest& request)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (std::exchange(m_areRowsHeld, false)) {
        m_heldRows = request;
        m_changed.notify_all();
        return;
    }
    m_rowsAsked << QString("%1-%2").arg(request.from()).arg(request.to());
    const auto found = m_lists.find(request.path().toEncoded());
    if (found == m_lists.end())
        return request.reply().setError(
            CMError(CMError::NotFoundName(), TrString(QString("no such list"))));
    QVariantList rows;
    for (int i = request.from(); i <= request.to() && i < found->second.size(); ++i) {
        QVariantList values;
        for (const QString& role : request.roles())
            values.append(found->second.at(i).value(role));
        rows.append(QVariant(values));
    }
    KeloRowsRoles reply;
    reply.setRows(rows);
    reply.setRowsCount(found->second.size());
    request.reply().setValue(reply);
}

void FakeModule::setDataRequest(const CMSetDataRequest& request)
{
    const bool isId = request.path() == KeloTidalPlayIdPath();
    const QString id = isId ? request.value().toHash().value(KeloTidalPlayItem::Id()).toString()
                            : request.path().splitBase().last();
    const KeloRoles row(KeloHash(request.value().toHash()));
    Answer scripted;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_asked << QString("%1 at %2").arg(id).arg(row.mediaData().metaData().prePlayTimeOffset());
        scripted = m_answers[id];
        if (!isId && row.mediaData().metaData().prePlayData() != id)
            scripted.error = "no such item";
        else if (m_held)
            scripted.error = "droping play request, busy";
        else if (scripted.isHeld) {
            m_held = [=] { answer(request, id, scripted); };
            m_changed.notify_all();
            return;
        }
    }
    answer(request, id, scripted);
}

void FakeModule::answer(const CMSetDataRequest& request, const QString& id, const Answer& answer)
{
    if (!answer.error.isEmpty())
        return request.reply().setError(CMError(TrString(answer.error)));
    PlayLogicInterface* player = PlayLogicInterface::instance(KeloPlayerPath());
    const CMPath path = answer.itemPath.isEmpty() ? request.path() : answer.itemPath;
    request.reply().setValue(player->play(item(path, id, answer), 0));
}
