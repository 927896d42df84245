#pragma once
#include <kelo/TrString.h>
#include <QList>

/// What people should know of the player, oldest first: it is shown until the next start after it.
/// A value type.
class PlayerNotes
{
public:
    /// Takes the place of those that were told before the latest start, and of too long a list.
    void add(const TrString& text);
    void clear() { *this = PlayerNotes(); }
    /// An item plays: what was told before the start ahead of it goes.
    void started();
    /// Those that the next start leaves.
    PlayerNotes fresh() const { return m_areFresh ? *this : PlayerNotes(); }
    const QList<TrString>& texts() const { return m_texts; }

private:
    QList<TrString> m_texts;
    bool m_areFresh = false; ///< no item has started since
};
