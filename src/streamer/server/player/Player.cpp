#include "Player.h"
#include "PlayerCommand.h"
#include "PlayerEngine.h"
#include <algorithm>
#include <kelo/KeloTidalConstants.h>

Player::Player(const PlayerOptions& options)
    : m_options(options), m_clock(m_systemClock),
      m_makeOutput([description = options.output](QString* error) {
          return AudioOutput::create(description, error);
      })
{
}

Player::Player(const PlayerOptions& options, OutputFactory makeOutput, Clock& clock)
    : m_options(options), m_clock(clock), m_makeOutput(std::move(makeOutput))
{
}

Player::~Player()
{
    stop();
}

bool Player::start(QString* error)
{
    bool isMade = false;
    m_thread.start([this, error, &isMade] {
        std::unique_ptr<AudioOutput> output = m_makeOutput(error);
        isMade = output != nullptr;
        if (isMade)
            m_engine = std::make_unique<PlayerEngine>(
                std::move(output), m_clock, m_keptRows, m_options.stateDir,
                [this](const PlayerStatus& status) { publish(status); });
    });
    if (!isMade) {
        m_thread.stop([] {});
        return false;
    }
    {
        std::lock_guard<std::mutex> lock(m_threadMutex);
        m_isRunning = true;
    }
    PlayLogicInterface::setInstance(KeloPlayerPath(), this);
    return true;
}

void Player::stop()
{
    {
        std::lock_guard<std::mutex> lock(m_threadMutex);
        if (!m_isRunning)
            return;
        m_isRunning = false;
    }
    PlayLogicInterface::setInstance(KeloPlayerPath(), nullptr);
    m_thread.stop([this] { m_engine.reset(); });
}

bool Player::post(std::function<void(PlayerEngine&)> function)
{
    std::lock_guard<std::mutex> lock(m_threadMutex);
    if (!m_isRunning)
        return false;
    m_thread.post([this, function = std::move(function)] { function(*m_engine); });
    return true;
}

void Player::callLater(std::function<void()> function)
{
    post([function = std::move(function)](PlayerEngine&) { function(); });
}

void Player::publish(const PlayerStatus& status)
{
    {
        std::lock_guard<std::mutex> lock(m_statusMutex);
        m_status = status;
        m_measuredMs = m_clock.steadyMs();
    }
    m_listeners.notify(status);
}

PlayerStatus Player::status() const
{
    std::lock_guard<std::mutex> lock(m_statusMutex);
    PlayerStatus status = m_status;
    if (status.state == PlayerStatus::State::Playing) {
        status.positionMs += m_clock.steadyMs() - m_measuredMs;
        if (status.item.durationMs > 0)
            status.positionMs = std::min(status.positionMs, status.item.durationMs);
    }
    return status;
}

CMReply<QVariant> Player::command(const QString& name, const QVariantHash& arguments)
{
    const auto reply = CMReply<QVariant>::create();
    const PlayerCommand command = PlayerCommand::parse(name, arguments);
    if (!command.run) {
        reply.setError(command.error);
        return reply;
    }
    const bool isPosted =
        post([run = command.run, reply](PlayerEngine& engine) { run(engine, reply); });
    if (!isPosted)
        reply.setError(CMError(KELO_TR("the player is not running")));
    return reply;
}

quint64 Player::addListener(Listener listener)
{
    return m_listeners.add(std::move(listener));
}

void Player::removeListener(quint64 id)
{
    m_listeners.remove(id);
}

QVariant Player::play(const KeloRoles& item, int)
{
    post([item](PlayerEngine& engine) { engine.accept(item); });
    return QVariant(true);
}
