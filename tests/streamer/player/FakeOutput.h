#pragma once
#include "AudioOutput.h"
#include <condition_variable>
#include <kelo/KeloPost.h>
#include <map>
#include <mutex>
#include <QObject>
#include <QStringList>

/// What the test and the output share: the test scripts it and reads the log from its own thread.
struct OutputScript
{
    enum Start { AtOnce, Never, Hangs };

    std::mutex mutex;
    std::condition_variable changed;
    Start start = AtOnce;                   ///< what becomes of an item that is opened
    int outputs = 0;                        ///< that exist
    QStringList log;                        ///< operations in order
    std::map<QString, OutputError> refused; ///< addresses that fail when they are opened
    qint64 positionMs = 0;
    QObject* context = nullptr; ///< of the player's thread
    AudioOutput::Events events; ///< copied when an item is opened

    QStringList operations()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return log;
    }
    void add(const QString& operation)
    {
        std::lock_guard<std::mutex> lock(mutex);
        log << operation;
        changed.notify_all();
    }
    bool waitFor(const std::function<bool()>& condition)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(20), condition);
    }
    /// What hangs comes back when it is to start at once.
    void setStart(Start value)
    {
        std::lock_guard<std::mutex> lock(mutex);
        start = value;
        log.clear();
        changed.notify_all();
    }
    void setPosition(qint64 ms)
    {
        std::lock_guard<std::mutex> lock(mutex);
        positionMs = ms;
    }
    void refuse(const QString& uri, const OutputError& error)
    {
        std::lock_guard<std::mutex> lock(mutex);
        refused[uri] = error;
    }
    /// Raises an event on the player's thread.
    void raise(std::function<void(const AudioOutput::Events&)> event)
    {
        std::lock_guard<std::mutex> lock(mutex);
        keloPost(context, [this, event = std::move(event)] {
            AudioOutput::Events copy;
            {
                std::lock_guard<std::mutex> lock(mutex);
                copy = events;
            }
            event(copy);
        });
    }
    void fail(const OutputError& error)
    {
        raise([error](const AudioOutput::Events& raised) { raised.error(error); });
    }
};

/// An output without sound that starts whatever it is given, unless scripted otherwise, and whose
/// further events the test raises.
class FakeOutput : public AudioOutput
{
public:
    explicit FakeOutput(OutputScript& script) : m_script(script)
    {
        std::lock_guard<std::mutex> lock(m_script.mutex);
        m_script.context = &m_context;
        ++m_script.outputs;
    }
    ~FakeOutput() override
    {
        std::lock_guard<std::mutex> lock(m_script.mutex);
        --m_script.outputs;
        m_script.changed.notify_all();
    }

    void open(const OutputItem& item) override
    {
        std::unique_lock<std::mutex> lock(m_script.mutex);
        m_script.log << QStringLiteral("open %1 %2").arg(item.uri).arg(item.startMs);
        m_script.changed.notify_all();
        m_script.positionMs = item.startMs;
        m_script.events = events();
        const bool starts = m_script.start == OutputScript::AtOnce;
        m_script.changed.wait(lock, [this] { return m_script.start != OutputScript::Hangs; });
        if (!starts)
            return;
        const auto refused = m_script.refused.find(item.uri);
        const bool fails = refused != m_script.refused.end();
        OutputError error = fails ? refused->second : OutputError();
        error.positionMs = item.startMs;
        keloPost(&m_context, [this, fails, error, opened = ++m_opened] {
            if (opened != m_opened)
                return;
            if (fails)
                events().error(error);
            else
                events().started();
        });
    }
    void setNext(const OutputItem& item) override { add(QStringLiteral("next ") + item.uri); }
    void pause() override { add(QStringLiteral("pause")); }
    void resume() override { add(QStringLiteral("resume")); }
    void stop() override { ++m_opened; }
    void seek(qint64 positionMs) override { add(QStringLiteral("seek %1").arg(positionMs)); }
    void setVolume(int percent) override { add(QStringLiteral("volume %1").arg(percent)); }
    qint64 positionMs() const override
    {
        std::lock_guard<std::mutex> lock(m_script.mutex);
        return m_script.positionMs;
    }
    qint64 durationMs() const override { return 100000; }

private:
    void add(const QString& line) { m_script.add(line); }

    OutputScript& m_script;
    QObject m_context;
    int m_opened = 0;
};
