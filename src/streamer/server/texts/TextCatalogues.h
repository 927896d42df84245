#pragma once
#include "TextCatalogue.h"

#include <memory>
#include <vector>

/// The catalogues built into the program, and which of them a client gets. Owned by the web server;
/// any thread. A catalogue is read when the first client gets it.
class TextCatalogues
{
public:
    TextCatalogues();
    ~TextCatalogues();

    /// The catalogue for a call: by the language it names (a tag such as "de" or "de-CH"; empty for
    /// none), else by its Accept-Language field (RFC 9110 12.5.4), else the built-in English.
    const TextCatalogue& choose(const QString& language, const QString& acceptLanguage) const;

private:
    struct Language;

    /// Nothing for a language that there is no catalogue for.
    Language* find(const QString& tag) const;

    std::vector<std::unique_ptr<Language>> m_languages; ///< English first
};
