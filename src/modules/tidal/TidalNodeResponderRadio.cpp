// The radio of an artist, kept as far as the service gave it.
#include "TidalHandler.h"
#include "TidalListAnswer.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/CMGlobal.h>
#include <kelo/KeloLog.h>

namespace {
KeloRoles rolesOf(const QStringList& names, const QVariantList& row)
{
    KeloRoles roles;
    roles.reserve(names.size());
    for (int i = 0; i < names.size(); ++i)
        roles.insert(names.at(i), row.at(i));
    return roles;
}
} // namespace

void TidalNodeResponder::forgetRadio()
{
    m_radioList.clear();
    m_radioId.clear();
}

void TidalNodeResponder::replyRadioTracks(HttpClientPrivate const& priv, QByteArray const& body,
                                          KeloError error, int requestedCount, CMPath const& path,
                                          KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    KELO_LOG("Tidal", DEBUG) << "Clear radio list.";
    forgetRadio();
    const TidalListAnswer answer(body, error);
    if (answer.total() == 0) {
        replyNoItems(request);
        return;
    }
    // What is kept answers whatever roles are asked for later.
    const QStringList names = QStringList(m_roles) << KeloRoles::ContainerPlayable();
    const CMGetRowsRequest whole(path, request.from(), request.to(), names, -1, CMVoidReply());
    TidalTrackRows maker(page(whole, path, variation),
                         CMPath(m_worker->addPrefix(QStringLiteral("/nowPlay"))));
    const bool isKept = request.from() == 0 && !m_handler->isOfEarlierLogin(priv);
    QVariantList rows;
    int index = 0;
    answer.forEachItem([&](const KeloJson& item, int) {
        const KeloRoles roles = rolesOf(names, maker.row(KeloTidalApiTrackResponse(item), index++));
        if (rows.size() < requestedCount)
            rows.append(QVariant(CMGlobal::itemRolesToList(roles, request.roles())));
        if (isKept)
            m_radioList.append(roles);
    });
    if (isKept)
        m_radioId = path.param(QStringLiteral("artistId"));
    KELO_LOG("Tidal", DEBUG) << "New radio list is created, new size: " << m_radioList.size();
    replyRows(request, rows, exactRows(request, requestedCount, rows.size(), answer.total()));
}

bool TidalNodeResponder::tryResponseRadio(CMGetRowsRequest const& request, QString const& artistId)
{
    KELO_LOG("Tidal", DEBUG) << "From row: " << request.from() << ", to Row: " << request.to()
                             << ", m_radioList size: " << m_radioList.size();
    if (m_radioList.isEmpty() || m_radioId != artistId)
        return false;
    const int last = qMin(m_radioList.size() - 1, request.to());
    QVariantList rows;
    for (int index = request.from(); index >= 0 && index <= last; ++index)
        rows.append(QVariant(CMGlobal::itemRolesToList(m_radioList.at(index), request.roles())));
    replyRows(request, rows, m_radioList.size());
    return true;
}
