#include "MprisService.h"
#include "library/RuntimeLibrary.h"
#include <kelo/KeloLog.h>
#include <QObject>

namespace {
QObject* makeObject(PlayerControl& player, const QString& busAddress)
{
    const RuntimeLibrary library(RuntimeLibrary::installedFile(QStringLiteral("libkelo_mpris.so")));
    using Create = QObject* (*)(PlayerControl&, const QString&);
    if (const auto create = library.function<Create>("kelo_mpris_object"))
        return create(player, busAddress);
    KELO_LOG("mpris", DEBUG) << "cannot use the session bus: " << library.reason();
    return nullptr;
}
} // namespace

MprisService::MprisService(PlayerControl& player) : m_player(player) {}

MprisService::~MprisService()
{
    stop();
}

void MprisService::start(const QString& busAddress)
{
    if (busAddress.isEmpty()) {
        KELO_LOG("mpris", DEBUG) << "there is no session bus";
        return;
    }
    m_thread.start([] {});
    m_thread.post([this, busAddress] { m_object.reset(makeObject(m_player, busAddress)); });
}

void MprisService::stop()
{
    if (m_thread.isRunning())
        m_thread.stop([this] { m_object.reset(); });
}
