#pragma once
#include "FailedModule.h"
#include "ModuleState.h"
#include "ModuleThread.h"

#include <kelo/CMListRowsNode.h>
#include <mutex>
#include <vector>

/// The modules that the streamer serves, and the row of each below "/". One that fails, at the
/// start or later, leaves the others alone. Owned by serve, used on its thread but for states().
class Modules : public QObject
{
    Q_OBJECT
public:
    /// `onNoneLeft` is called when the last module has failed, in a turn of the event loop.
    explicit Modules(std::function<void()> onNoneLeft);
    ~Modules() override;

    /// Starts one after the other. False when none serves, with a sentence for each in `error`.
    [[nodiscard]] bool start(const std::vector<ModuleChoice>& choices,
                             std::chrono::milliseconds limit,
                             const ModuleThread::IsWanted& isWanted, QString* error);
    void stop();
    /// In the order of their start; any thread.
    QList<ModuleState> states() const;
    /// How the addresses of pictures begin, as the top nodes say; any thread.
    QStringList imageUrls() const;
    /// Whether a module stands at the prefix.
    bool isServing(const QString& prefix) const;
    /// Whether a thread of a module is left behind, which does not end with this.
    bool isThreadLeftBehind() const;

private:
    class Top;
    struct Module
    {
        ModuleChoice choice;
        ModuleState state;
        ModuleThread thread;
        std::unique_ptr<FailedModule> failed; ///< null while it serves
    };

    /// Why it does not serve, as a sentence; empty when it does.
    QString startOne(Module& module, std::chrono::milliseconds limit,
                     const ModuleThread::IsWanted& isWanted);
    QString clash(const ModuleChoice& choice) const;
    void fail(Module& module, const QString& problem);
    bool isAnyServing() const;
    void showRows();

    const std::function<void()> m_onNoneLeft;
    std::vector<std::unique_ptr<Module>> m_modules;
    mutable std::mutex m_mutex; ///< guards the states, and the list while it grows
    std::unique_ptr<Top> m_top; ///< null unless it is in the tree
};
