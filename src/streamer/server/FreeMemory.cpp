#include "FreeMemory.h"

#include <chrono>
#include <malloc.h>
#include <sys/resource.h>

namespace {

constexpr int arenas = 2; // each keeps what its threads freed
constexpr std::chrono::seconds lookEvery{5};
constexpr long pagesOfABurst = 256;

/// Grows with every page that comes into memory.
long pagesTouched()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

} // namespace

FreeMemory::FreeMemory()
{
    ::mallopt(M_ARENA_MAX, arenas);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { giveBack(); });
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.start(lookEvery);
}

void FreeMemory::giveBack()
{
    if (pagesTouched() - m_pagesTouched < pagesOfABurst)
        return;
    ::malloc_trim(0);
    m_pagesTouched = pagesTouched();
}
