#include "FreeMemory.h"

#include <chrono>
#include <malloc.h>
#include <sys/resource.h>

namespace {

constexpr int arenas = 2;              // each keeps what its threads freed
constexpr int ownMapping = 128 * 1024; // bytes; what is larger goes back as soon as it is freed
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
    ::mallopt(M_MXFAST, 0);                  // else each large buffer merges what is free at first
    ::mallopt(M_MMAP_THRESHOLD, ownMapping); // stays: it would grow with what is freed
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { giveBack(); });
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.start(lookEvery);
}

void FreeMemory::giveBack()
{
    const long touched = pagesTouched();
    const bool isBusy = touched - m_pagesTouched >= pagesOfABurst;
    // Once more after a burst: what it still had at the last time is free by now.
    if (isBusy || m_wasBusy)
        ::malloc_trim(0);
    m_wasBusy = isBusy;
    m_pagesTouched = touched;
}
