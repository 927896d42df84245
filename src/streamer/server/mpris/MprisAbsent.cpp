// MprisService in a program that is built without QtDBus.
#include "MprisService.h"
#include <kelo/KeloLog.h>

class MprisObject
{
};

MprisService::MprisService(PlayerControl& player) : m_player(player) {}

MprisService::~MprisService() = default;

void MprisService::start(const QString&)
{
    KELO_LOG("mpris", DEBUG) << "built without the session bus";
}

void MprisService::stop() {}
