#pragma once
#include <kelo/TrString.h>

/// Why a login failed or ended: for people, and the word that clients decide by. A plain value.
struct LoginProblem
{
    TrString text;
    QString reason; ///< one of KeloOAuth2Reason's

    bool isEmpty() const { return text.isEmpty(); }
};
