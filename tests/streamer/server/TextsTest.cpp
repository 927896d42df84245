#include "WebWorld.h"

#include "Table.h"
#include "texts/TextCatalogues.h"
#include "web/HttpReply.h"
#include "web/LoginApi.h"
#include "web/PlayerApi.h"

#include <gtest/gtest.h>
#include <kelo/CMListRowsNode.h>
#include <QBuffer>
#include <QJsonArray>
#include <thread>

namespace {

QStringList titles(const WebWorld::Answer& answer)
{
    QStringList result;
    for (const QJsonValue& row : answer.json["rows"].toArray())
        result << row.toObject()["Title"].toString();
    return result;
}

httplib::Headers accepting(const std::string& languages)
{
    return {{"Accept-Language", languages}};
}

/// A world with a list of one row of each kind of text.
struct TextsTest : testing::Test
{
    TextsTest()
    {
        const char* const context = "bool TidalWorker::buildStaticStructure()";
        CMListRowsNode* list =
            CMListRowsNode::create(world.worker->nodes(), world.worker->addPrefix("texts"));
        list->setTitle(TrString(TrCharData{context, "My Music", nullptr}));
        const auto append = [list](KeloRolesType::Enum type, const TrString& title) {
            KeloRoles row;
            row.setType(type);
            row.setTitle(title);
            list->rowsAppend(row);
        };
        append(KeloRolesType::Header_, TrString("Albums"));
        append(KeloRolesType::Container_, TrString("Albums"));
        append(KeloRolesType::Container_, TrString(TrCharData{context, "Albums", nullptr}));
        append(KeloRolesType::Container_, TrString(TrCharData{context, "Foghorns", nullptr}));
        append(KeloRolesType::Action_,
               TrString::in("Player", "the audio did not arrive: %1", {QString("%1 Albums")}));
    }

    WebWorld world;
};

TEST_F(TextsTest, ClientsAtTheSameTimeGetTheSameRowsEachInItsLanguage)
{
    // A heading and a text of ours are put into words, an album of that name is not.
    const std::map<std::string, QStringList> expected{
        {"en",
         {"My Music", "Albums", "Albums", "Albums", "Foghorns",
          "the audio did not arrive: %1 Albums"}},
        {"de",
         {"Meine Musik", "Alben", "Albums", "Alben", "Foghorns",
          "die Audiodaten sind nicht angekommen: %1 Albums"}},
        {"ja",
         {"マイミュージック", "アルバム", "Albums", "アルバム", "Foghorns",
          "音声を受信できませんでした: %1 Albums"}}};
    std::vector<std::thread> clients;
    for (const auto& [language, texts] : expected) {
        clients.emplace_back([this, language = language, texts = texts] {
            for (int i = 0; i < 20; ++i) {
                const auto answer =
                    world.get("/api/v1/rows?path=/web/texts", accepting(language + "-XX"));
                const QString title = answer.json["roles"].toObject()["Title"].toString();
                EXPECT_EQ(QStringList(title) + titles(answer), texts);
            }
        });
    }
    for (std::thread& client : clients)
        client.join();
    const auto few = world.get("/api/v1/rows?path=/web/texts&roles=Title&to=1&language=de");
    EXPECT_EQ(titles(few), (QStringList{"Alben", "Albums"}));
    EXPECT_EQ(few.json["rows"].toArray().at(0).toObject().keys(), QStringList{"Title"});
}

TEST_F(TextsTest, ErrorsComeInTheClientsLanguageHoweverTheyWereMade)
{
    for (const auto& [error, title, detail] : Table<CMError, const char*, const char*>{
             {CMError(TrString(TrCharData{"CMRoot", "The service has stopped", nullptr})), "Fehler",
              "Der Dienst wurde beendet"},
             {CMError(CMError::NotFoundName(), TrString("Missing track ID")), "Nicht gefunden",
              "Die Titel-ID fehlt"},
             {CMError(TrString("The dog ate the disc")), "Fehler", "The dog ate the disc"}}) {
        HttpReply reply = HttpReply::error(error);
        reply.translate(TextCatalogues().choose("de", QString()));
        const QJsonObject json =
            QJsonDocument::fromJson(QByteArray::fromStdString(reply.body)).object();
        EXPECT_EQ(json["title"].toString(), title);
        EXPECT_EQ(json["detail"].toString(), detail);
    }
    const auto answer = world.get("/api/v1/rows?path=/web/no&language=de");
    EXPECT_EQ(answer.status, 404);
    EXPECT_EQ(answer.detail(), "Unter /web/no gibt es nichts");
}

TEST(TextCatalogueTest, NotesAreTranslatedWithTheReasonsInsideButNotTheTitles)
{
    const TextCatalogues catalogues;
    const TextCatalogue& german = catalogues.choose("de", QString());
    const QString title = "Albums";
    const TrString refused =
        TrString::in("Player", "the address was refused (%1)", {QString("403")});
    PlayerStatus status;
    status.item.title = title;
    status.notes = {TrString::in("Player", "skipped: %1: %2", {title, refused}),
                    TrString::in("Player", "%1 cannot be played", {QString("Not found")})};
    EXPECT_EQ(
        PlayerApi::text(status, &german),
        R"({"note":"übersprungen: Albums: die Adresse wurde abgelehnt (403); )"
        R"(Not found lässt sich nicht abspielen","queueVersion":0,"repeat":"off","shuffle":false,)"
        R"("state":"stopped","title":"Albums","volume":100})");
    KeloOAuth2Info login;
    login.setProblem(
        TrString::in("Login", "No client id is set for %1; see the settings.", {title}));
    EXPECT_EQ(LoginApi::text({"radio", login}, &german),
              R"({"displayName":"radio","loggedIn":false,"problem":"Für Albums ist keine )"
              R"(Client-ID festgelegt; siehe Einstellungen.","reason":"","service":"radio"})");
}

TEST_F(TextsTest, TheLanguageIsTheBestThatTheClientNames)
{
    for (const auto& [query, accepted, language] :
         Table<const char*, const char*, const char*>{{"", "DE-at", "de"},
                                                      {"", "pt, fr;q=0.5, de;q=0.7", "de"},
                                                      {"", "de;q=0, ja;q=0.1", "ja"},
                                                      {"", "nn-NO, no;q=0.5", "nb"},
                                                      {"", "*", "en"},
                                                      {"", ";;q=,de;q=x,,fr;q=0.2;", "en"},
                                                      {"?language=fr", "de", "fr"},
                                                      {"?language=tlh", "de", "en"},
                                                      {"?language=", "de", "de"}}) {
        const auto answer = world.get(std::string("/api/v1/texts") + query, accepting(accepted));
        EXPECT_EQ(answer.json["language"].toString(), language) << query << ' ' << accepted;
        EXPECT_EQ(answer.headers.find("Content-Language")->second, language);
        EXPECT_EQ(answer.headers.find("Vary")->second, "Accept-Language");
    }
}

TEST_F(TextsTest, ThePageGetsItsTextsOnce)
{
    const auto english = world.get("/api/v1/texts");
    EXPECT_EQ(english.json["texts"], QJsonValue(QJsonObject()));
    const auto german = world.get("/api/v1/texts?language=de");
    EXPECT_EQ(german.json["texts"].toObject()["Play"], QJsonValue("Abspielen"));
    const std::string tag = german.headers.find("ETag")->second;
    const httplib::Headers known{{"If-None-Match", tag}};
    EXPECT_EQ(world.get("/api/v1/texts?language=de", known).status, 304);
    EXPECT_EQ(world.get("/api/v1/texts?language=fr", known).status, 200);
}

TEST(TextCatalogueTest, UnfinishedAndMalformedEntriesLeaveTheBuiltInText)
{
    TextCatalogue catalogue("de");
    QByteArray text = "<TS><context><name>C</name>"
                      "<message><source>a %1 b %2</source><translation>%2 y %1</translation>"
                      "</message><message><source>c</source><translation type=\"unfinished\">z"
                      "</translation></message><message><source>c</source><comment>k</comment>"
                      "<translation>k&lt;</translation></message></context>";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    EXPECT_FALSE(catalogue.add(buffer)) << "the end is missing";
    EXPECT_TRUE(catalogue.translate("C", "c").isNull());
    EXPECT_EQ(catalogue.translate("C", "c", "k"), "k<");
    EXPECT_EQ(catalogue.plain("c"), "k<");
    EXPECT_EQ(catalogue.plain("d"), "d");
}

} // namespace
