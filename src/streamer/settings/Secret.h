#pragma once

#include <QString>

/// A text that must not be seen: it cannot be printed, only shown as "***". A plain value, usable
/// on any thread. It does not hide the text from memory, only from logs and people.
class Secret
{
public:
    Secret() = default;
    explicit Secret(QString text) : m_text(std::move(text)) {}

    bool isEmpty() const { return m_text.isEmpty(); }
    /// The text itself, for the one place that sends it. Never pass the result to a log.
    const QString& reveal() const { return m_text; }
    /// "***", or nothing when there is no secret.
    QString masked() const { return m_text.isEmpty() ? QString() : "***"; }

private:
    QString m_text;
};
