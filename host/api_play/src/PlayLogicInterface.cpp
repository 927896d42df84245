#include "PlayLogicInterface.h"

#include <map>
#include <mutex>

namespace {
struct Players
{
    std::mutex mutex;
    std::map<QString, PlayLogicInterface*> byBase;
};

Players& players()
{
    static Players all;
    return all;
}
} // namespace

PlayLogicInterface::~PlayLogicInterface() = default;

PlayLogicInterface* PlayLogicInterface::instance(const CMPath& path)
{
    Players& all = players();
    std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.byBase.find(path.base());
    return found == all.byBase.end() ? nullptr : found->second;
}

void PlayLogicInterface::setInstance(const CMPath& path, PlayLogicInterface* player)
{
    Players& all = players();
    std::lock_guard<std::mutex> lock(all.mutex);
    if (player)
        all.byBase[path.base()] = player;
    else
        all.byBase.erase(path.base());
}
