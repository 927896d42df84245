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
    /// A file of the page.
    bool isAsset = false;
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
    /// Lets the client keep the body under the tag of tagOf() and ask again each time; a client
    /// that names the tag among its own (RFC 9110 13.1.2) has the body already and gets none.
    void setTag(const std::string& tag, const std::string& ifNoneMatch);
    /// A weak tag, since a compressed answer carries it too.
    static std::string tagOf(const QByteArray& body);
    /// Name of the error that waiting calls get when the streamer stops.
    static QString stoppingName() { return QStringLiteral("Stopping"); }
};
