#include "MprisService.h"
#include "MprisObject.h"
#include <kelo/KeloLog.h>

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
    m_thread.start([this] { m_object = std::make_unique<MprisObject>(m_player); });
    m_thread.post([this, busAddress] { m_object->connectTo(busAddress); });
}

void MprisService::stop()
{
    if (m_thread.isRunning())
        m_thread.stop([this] { m_object.reset(); });
}
