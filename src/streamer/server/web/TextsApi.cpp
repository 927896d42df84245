#include "TextsApi.h"

#include "texts/TextCatalogue.h"

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
    reply.setTag(HttpReply::tagOf(QByteArray::fromStdString(reply.body)), call.ifNoneMatch);
    return reply;
}
