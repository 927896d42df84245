#pragma once
#include "settings/Settings.h"

#include <kelosim/SimServer.h>
#include <memory>

/// The simulated service of `kelo serve --demo`. Owned by serve; the first login
/// approves itself, so that a newcomer sees music at once.
class Demo
{
public:
    /// Starts the service; false with a sentence in `error`.
    [[nodiscard]] bool start(QString* error);
    void stop();
    /// Points all addresses of the settings at it.
    void apply(TidalSettings& settings) const;

private:
    std::unique_ptr<kelosim::SimServer> m_server;
};
