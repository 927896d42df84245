#pragma once

#include "Catalogue.h"
#include "Faults.h"
#include "FlacTone.h"

#include <atomic>
#include <list>
#include <memory>
#include <mutex>

namespace kelosim {

// The audio host: hands out addresses that are valid for an hour and serves tones behind them, with
// ranges. Owned by SimServer, used from every connection thread. Keeps the last few tones.
class Audio
{
public:
    Audio(const Catalogue& catalogue, Faults& faults) : m_catalogue(catalogue), m_faults(faults) {}

    // A fresh address of the track (index); every call gives another one.
    std::string address(const std::string& baseUrl, int track, bool preview) const;
    // GET below /audio.
    HttpResponse serve(const HttpRequest& request);
    // How long every track lasts, 0 for the lengths of the catalogue.
    int shortSeconds() const;

private:
    std::shared_ptr<const FlacTone> tone(int track, int seconds);
    std::string signature(std::int64_t track, std::int64_t expires, std::uint64_t nonce) const;
    bool isTokenValid(std::int64_t track, const std::string& token) const;

    static constexpr std::size_t maxTones = 12; // about 1.5 MB each
    static constexpr int previewSeconds = 30;

    struct Kept
    {
        int track;
        int seconds;
        std::shared_ptr<const FlacTone> tone;
    };

    const Catalogue& m_catalogue;
    Faults& m_faults;
    std::mutex m_mutex;
    std::list<Kept> m_tones; // the last used one first
    mutable std::atomic<std::uint64_t> m_nonce{0};
};

} // namespace kelosim
