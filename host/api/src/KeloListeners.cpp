#include "KeloListeners.h"

#include <atomic>

quint64 keloNextListenerId()
{
    static std::atomic<quint64> last{0};
    return ++last;
}
