#include "TextsApi.h"

#include "texts/TextCatalogue.h"

#include <QCryptographicHash>

void TextsApi::addRoutes(RouteTable& routes)
{
    routes.add("GET", "/api/v1/texts", texts);
}

HttpReply TextsApi::texts(const HttpCall& call)
{
    QJsonObject texts;
    const QMap<QString, QString>& translations = call.texts->pageTexts();
    for (auto it = translations.begin(); it != translations.end(); ++it)
        texts.insert(it.key(), it.value());
    HttpReply reply = HttpReply::json(QJsonObject{
        {QStringLiteral("language"), call.texts->language()}, {QStringLiteral("texts"), texts}});
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(reply.body), QCryptographicHash::Sha256);
    const std::string tag = "W/\"" + hash.toHex().left(32).toStdString() + '"';
    reply.headers = {{"Cache-Control", "no-cache"}, {"ETag", tag}};
    if (HttpReply::isKnown(call.ifNoneMatch, tag)) {
        reply.status = 304;
        reply.body.clear();
    }
    return reply;
}
