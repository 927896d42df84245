#pragma once
#include <memory>
#include <QString>

namespace kelosim {
class SimServer;
}

/// The simulated service inside the streamer, which ends with it. Owned by the streamer, used on
/// its thread; it changes no settings. A program that was built without it (KELO_DEMO) refuses to
/// start it.
class Demo
{
public:
    Demo();
    ~Demo();

    /// The service's address; empty, with a sentence in `error`, where there is none.
    [[nodiscard]] QString start(QString* error);

private:
    std::shared_ptr<kelosim::SimServer> m_service; ///< shared, as its type may be unknown
};
