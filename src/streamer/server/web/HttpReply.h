#pragma once
#include <kelo/CMError.h>
#include <memory>
#include <optional>
#include <QJsonObject>
#include <string>
#include <utility>
#include <vector>

class EventStream;
class TextCatalogue;

/// What a call of the HTTP API is answered with. A plain value.
struct HttpReply
{
    int status = 200;
    std::string contentType = "application/json";
    std::string body = {};
    /// Further header fields; one of the server's own of that name gives way.
    std::vector<std::pair<std::string, std::string>> headers = {};
    /// Where set, it is written instead of the body.
    std::shared_ptr<EventStream> stream = {};
    /// The tree's error that the body tells of, in English at first.
    std::optional<CMError> treeError = {};

    static HttpReply json(const QJsonObject& object);
    static HttpReply json(std::string text);
    /// A problem document (RFC 9457). `name` is that of the tree's error, empty for the API's own.
    static HttpReply problem(int status, const QString& detail, const QString& title = QString(),
                             const QString& name = QString());
    static HttpReply badRequest(const QString& detail) { return problem(400, detail); }
    static HttpReply wrongMethod(const std::string& method);
    /// The problem document of an error that the tree answered with; the status follows its name.
    static HttpReply error(const CMError& error);
    /// Tells of the tree's error, if it does, in a client's language. What the API itself says of a
    /// malformed call is for programmers and stays English.
    void translate(const TextCatalogue& texts);
    /// Whether a client that names these tags (RFC 9110 13.1.2) has the body of this weak tag.
    static bool isKnown(const std::string& ifNoneMatch, const std::string& tag);
    /// Name of the error that waiting calls get when the streamer stops.
    static QString stoppingName() { return QStringLiteral("Stopping"); }
};
