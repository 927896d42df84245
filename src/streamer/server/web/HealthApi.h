#pragma once
#include "HttpReply.h"
#include "modules/ModuleState.h"

#include <functional>

class TextCatalogue;

/// The health pages. Owned by the web server; any thread.
class HealthApi
{
public:
    using Modules = std::function<QList<ModuleState>()>;

    explicit HealthApi(const Modules& modules) : m_modules(modules) {}

    /// The process lives and answers; which workers and modules it runs.
    HttpReply health() const;
    /// Whether it can serve: a module is there and every worker's thread turns. Modules that failed
    /// are told. What is waited
    /// for meanwhile is told, in the client's language.
    HttpReply readiness(const TextCatalogue& texts) const;

private:
    QList<ModuleState> modules() const { return m_modules ? m_modules() : QList<ModuleState>(); }

    const Modules m_modules;
};
