#include "PlayerNotes.h"
#include <numeric>
#include <utility>

namespace {
constexpr int maxLength = 400;
}

void PlayerNotes::add(const TrString& text)
{
    const auto plus = [](int sum, const TrString& note) { return sum + note.source().size() + 2; };
    const int length = std::accumulate(m_texts.begin(), m_texts.end(), -2, plus);
    if (!m_areFresh || length > maxLength)
        m_texts.clear();
    m_texts.append(text);
    m_areFresh = true;
}

void PlayerNotes::started()
{
    if (!std::exchange(m_areFresh, false))
        m_texts.clear();
}
