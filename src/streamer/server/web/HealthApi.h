#pragma once
#include "HttpReply.h"

class TextCatalogue;

/// The health pages. Owned by the web server; any thread.
class HealthApi
{
public:
    explicit HealthApi(const QString& moduleFile) : m_moduleFile(moduleFile) {}

    /// The process lives and answers; which workers and module it runs.
    HttpReply health() const;
    /// Whether it can serve: the module is there and every worker's thread turns. What is waited
    /// for meanwhile is told, in the client's language.
    HttpReply readiness(const TextCatalogue& texts) const;

private:
    const QString m_moduleFile;
};
