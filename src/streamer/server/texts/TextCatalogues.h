#pragma once
#include "TextCatalogue.h"

#include <memory>
#include <vector>

/// The catalogues built into the program, and which of them a client gets. Owned by the web server;
/// loaded when made, then only read, on any thread.
class TextCatalogues
{
public:
    TextCatalogues();

    /// The catalogue for a call: by the language it names (a tag such as "de" or "de-CH"; empty for
    /// none), else by its Accept-Language field (RFC 9110 12.5.4), else the built-in English.
    const TextCatalogue& choose(const QString& language, const QString& acceptLanguage) const;
    /// The tags of all languages, English first.
    QStringList languages() const;

private:
    /// Nothing for a language that there is no catalogue for.
    const TextCatalogue* find(const QString& tag) const;

    std::vector<std::unique_ptr<TextCatalogue>> m_catalogues; ///< English first
};
