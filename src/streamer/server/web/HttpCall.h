#pragma once
#include <kelo/CMPath.h>
#include <kelo/KeloJson.h>
#include <optional>
#include <QPair>
#include <QString>
#include <QVector>

class TextCatalogue;

/// What a call of the HTTP API asks for, checked and decoded. A plain value.
struct HttpCall
{
    /// In the order of the address; values decoded.
    QVector<QPair<QString, QString>> query;
    QByteArray body = {};
    /// The texts in the client's language; the server sets them for every call.
    const TextCatalogue* texts = nullptr;
    /// The field of that name.
    std::string ifNoneMatch = {};

    /// Reads the query of a request target; nothing when an escape is malformed or not UTF-8.
    static std::optional<QVector<QPair<QString, QString>>> parseQuery(const std::string& target);

    /// The parameter's value; nothing when missing.
    std::optional<QString> parameter(const char* name) const;
    QStringList parameters(const char* name) const;

    /// Each reads a part of the call; nothing with a sentence in `fault` when it is malformed.
    std::optional<CMPath> path(QString* fault) const;
    std::optional<int> integer(const char* name, int fallback, QString* fault) const;
    /// The role names, or the fallback where none are asked for.
    std::optional<QStringList> roles(const QStringList& fallback, QString* fault) const;
    /// The body as a JSON object; an empty body counts as an empty object.
    std::optional<KeloJson> object(QString* fault) const;

    /// A path in its text form; nothing with a sentence in `fault` when it is malformed.
    static std::optional<CMPath> readPath(const QString& text, QString* fault);
};
