#pragma once
#include <QTimer>

/// Gives memory that a burst of work leaves behind back to the system, some seconds later. Owned by
/// serve, made on its thread before there are others.
class FreeMemory
{
public:
    FreeMemory();

private:
    void giveBack();

    QTimer m_timer;
    long m_pagesTouched = 0; ///< at the last look
    bool m_wasBusy = false;  ///< many pages were touched before the last look
};
