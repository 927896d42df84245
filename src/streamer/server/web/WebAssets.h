#pragma once
#include "HttpReply.h"

#include <optional>

class TextCatalogue;

/// The files of the web page: those built into the program, or, for people who work on the page,
/// those of a folder, read again at each request. Of the built-in files, whose addresses carry
/// their digest, a client keeps all but the start page and the manifest. Owned by the web server;
/// any thread. A name is checked letter by letter against a strict form, so that no address reaches
/// outside.
class WebAssets
{
public:
    /// An empty `directory` means the built-in files.
    explicit WebAssets(const QString& directory);

    /// The file that an address path names ("/" is the start page), or 304 when the client has it
    /// (`ifNoneMatch` is its header's value); nothing when there is no such file. What a phone
    /// shows of the manifest is in the language of `texts`.
    std::optional<HttpReply> find(const std::string& path, const std::string& ifNoneMatch,
                                  const TextCatalogue& texts) const;

private:
    QString m_directory; ///< below ":" when built in
    bool m_isBuiltIn = false;
};
