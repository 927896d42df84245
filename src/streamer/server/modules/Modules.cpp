#include "Modules.h"

#include "ModuleLoader.h"

#include <algorithm>
#include <kelo/CMNodesWorker.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>

/// The node "/": a row for each module, which leads to its top node.
class Modules::Top : public CMNodesWorker
{
public:
    Top() : CMNodesWorker({{QStringLiteral("prefix"), QStringLiteral("/")}}, "modules")
    {
        rows = CMListRowsNode::create(nodes(), CMPath(QStringLiteral("/")));
        rows->setTitle(TrString::in("Modules", "Modules"));
    }

    CMListRowsNode* rows; ///< of the node tree
};

Modules::Modules(std::function<void()> onNoneLeft) : m_onNoneLeft(std::move(onNoneLeft)) {}

Modules::~Modules()
{
    stop();
}

bool Modules::start(const std::vector<ModuleChoice>& choices, std::chrono::milliseconds limit,
                    const ModuleThread::IsWanted& isWanted, QString* error)
{
    QStringList problems;
    for (const ModuleChoice& choice : choices) {
        auto module = std::make_unique<Module>();
        module->choice = choice;
        module->state = {choice.name, choice.file, choice.prefix, QString()};
        const QString problem = startOne(*module, limit, isWanted);
        std::lock_guard<std::mutex> lock(m_mutex);
        m_modules.push_back(std::move(module));
        if (!problem.isEmpty())
            problems.append(problem);
        m_modules.back()->state.problem = problem;
    }
    if (!isAnyServing()) {
        *error = problems.isEmpty() ? QStringLiteral("there is no module to serve")
                                    : problems.join(QLatin1Char('\n'));
        return false;
    }
    for (const auto& module : m_modules) {
        if (!module->state.problem.isEmpty())
            fail(*module, module->state.problem);
    }
    m_top = std::make_unique<Top>();
    showRows();
    CMRoot().addWorker(m_top.get());
    return true;
}

QString Modules::clash(const ModuleChoice& choice) const
{
    if (!ModuleSettings::isPrefix('/' + choice.name))
        return QStringLiteral("its name \"%1\" has more than letters, digits, - and _")
            .arg(choice.name);
    for (const auto& other : m_modules) {
        if (other->state.problem.isEmpty() && other->state.prefix == choice.prefix)
            return QStringLiteral("its prefix %1 is that of %2")
                .arg(choice.prefix, other->state.file);
    }
    return QString();
}

QString Modules::startOne(Module& module, std::chrono::milliseconds limit,
                          const ModuleThread::IsWanted& isWanted)
{
    const QString file = module.choice.file;
    KELO_LOG("Modules", INFO) << "Loading " << file; // said before it can end the program
    const auto load = [file](QString* error) { return ModuleLoader::load(file, error); };
    const auto ended = [this, &module](const QString& reason) {
        keloPost(this, [this, &module, reason] {
            module.thread.dropQueued();
            fail(module,
                 QStringLiteral("the module %1 has stopped: %2").arg(module.choice.file, reason));
            showRows();
            if (!isAnyServing())
                m_onNoneLeft();
        });
    };
    QString reason = ModuleLoader::misfit(file);
    if (reason.isEmpty())
        reason = clash(module.choice);
    if (reason.isEmpty())
        reason = module.thread.start(load, module.choice, limit, isWanted, ended);
    if (!reason.isEmpty())
        return ModuleLoader::refusal(file, reason);
    module.choice.prefix = module.thread.prefix();
    module.state.prefix = module.choice.prefix;
    return QString();
}

void Modules::fail(Module& module, const QString& problem)
{
    KELO_LOG("Modules", ERROR) << problem;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        module.state.problem = problem;
    }
    if (module.choice.prefix == QLatin1String("/"))
        return; // of a file without a name; there stand the others
    module.failed = std::make_unique<FailedModule>(module.choice, problem);
    if (!CMRoot().addWorker(module.failed.get()))
        module.failed.reset(); // its place is another one's
}

bool Modules::isAnyServing() const
{
    return std::any_of(m_modules.begin(), m_modules.end(),
                       [](const auto& module) { return module->state.problem.isEmpty(); });
}

void Modules::showRows()
{
    if (!m_top)
        return;
    m_top->rows->rowsClear();
    for (const auto& module : m_modules) {
        if (module->state.problem.isEmpty() || module->failed)
            m_top->rows->rowsAppend(CMPath(module->choice.prefix));
    }
}

void Modules::stop()
{
    if (m_top)
        CMRoot().removeWorker(m_top.get());
    m_top.reset();
    for (const auto& module : m_modules) {
        module->thread.stop();
        if (module->failed)
            CMRoot().removeWorker(module->failed.get());
        module->failed.reset();
    }
}

QList<ModuleState> Modules::states() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QList<ModuleState> states;
    for (const auto& module : m_modules)
        states.append(module->state);
    return states;
}

QStringList Modules::imageUrls() const
{
    QStringList urls;
    const QList<ModuleState> all = states();
    for (const ModuleState& state : all)
        urls << CMRoot().dataRoles(CMPath(state.prefix)).value(KeloRoles::ImageUrl()).toString();
    return urls;
}

bool Modules::isServing(const QString& prefix) const
{
    return std::any_of(m_modules.begin(), m_modules.end(), [&prefix](const auto& module) {
        return module->state.problem.isEmpty() && module->state.prefix == prefix;
    });
}

bool Modules::isThreadLeftBehind() const
{
    return std::any_of(m_modules.begin(), m_modules.end(),
                       [](const auto& module) { return module->thread.isLeftBehind(); });
}
