#include "AnswerProbe.h"
#include "TreeFixture.h"
#include <kelo/KeloJson.h>
#include <kelo/KeloMimeTypes.h>
#include <optional>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

const char* const trackPath = "/tracks/12";
const char* const streamPath = "/tracks/12/playbackinfopostpaywall";

using Answer = ScriptedService::Answer;

Answer track(qint64 id, const char* title = "Song")
{
    const QByteArray body =
        "{\"id\":" + QByteArray::number(id) + ",\"title\":\"" + title +
        "\",\"artist\":{\"name\":\"Her\"},\"album\":{\"title\":\"It\",\"cover\":\"ab-cd-ef\"}}";
    return {200, body.toStdString()};
}

Answer stream(const QByteArray& trackId, const QByteArray& manifest,
              const QByteArray& type = "application/vnd.tidal.bts")
{
    const QByteArray body = "{" + trackId + "\"manifestMimeType\":\"" + type +
                            "\",\"manifest\":\"" + manifest.toBase64() + "\"}";
    return {200, body.toStdString()};
}

const QByteArray manifest = R"({"mimeType":"audio/flac","urls":["http://a/1","http://a/2"]})";

Answer goodStream()
{
    return stream("\"trackId\":12,", manifest);
}

/// A row of track 12 as the module lists it.
QVariantHash trackRow(bool withArtist)
{
    KeloMetaData metaData;
    metaData.setServiceID(q("tidal"));
    metaData.setAlbum(q("Row album"));
    if (withArtist)
        metaData.setArtist(q("Row artist"));
    metaData.setPrePlayTimeOffset(5000);
    metaData.setContentPlayContextPath(CMPath(q("/tidal/list")));
    KeloResource resource;
    resource.setMimeType(MimeTypes::Audio::unknown());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    KeloRoles row;
    row.setMediaData(mediaData);
    row.setTitle(q("Row title"));
    row.setIcon(q("Row icon"));
    row.setType(KeloRolesType::Audio_);
    return row.toHash();
}

class WorkerPlayTest : public TreeFixture
{
protected:
    void SetUp() override
    {
        startConfigured();
        m_probe.emplace(*worker(), [this](const auto& function) { onWorker(function); });
        m_service.script(trackPath, {track(12)});
        m_service.script(streamPath, {goodStream()});
    }
    CMSetDataRequest playId(const QVariant& id)
    {
        return set(q("/tidal/playId"), QVariantHash{{q("id"), id}});
    }
    std::optional<AnswerProbe> m_probe;
};

TEST_F(WorkerPlayTest, PlaysWhateverAnswerComesFirstAndFailsInOneWay)
{
    struct Case
    {
        const char* name;
        Answer trackAnswer;
        Answer streamAnswer;
        const char* error; ///< empty: it plays
    };
    const char* const incomplete = "media data resolution incomplete";
    const char* const invalid = "invalid manifest";
    const char* const failed = "media data request failed";
    const char* const unread = "Error, failed to parse error message";
    const Case cases[] = {
        {"both", track(12), goodStream(), ""},
        {"stream without id", track(12), stream("", manifest), incomplete},
        {"another stream", track(12), stream("\"trackId\":13,", manifest), incomplete},
        {"another track", track(13), goodStream(), incomplete},
        {"track without album",
         {200, R"({"id":12,"artist":{},"album":null})"},
         goodStream(),
         incomplete},
        {"empty track", {200, ""}, goodStream(), incomplete},
        {"track refused", {404, R"({"status":404,"userMessage":"Gone"})"}, goodStream(), "Gone"},
        {"track error unread", {500, "<html>"}, goodStream(), unread},
        {"track error in a good answer", {200, R"({"status":404})"}, goodStream(), failed},
        {"stream refused", track(12), {401, R"({"status":401,"userMessage":"No"})"}, "No"},
        {"stream error without text", track(12), {401, R"({"status":401})"}, failed},
        {"other manifest", track(12),
         stream("\"trackId\":12,", manifest, "application/vnd.TIDAL.bts"),
         "unsupported manifest type"},
        {"broken manifest", track(12), stream("\"trackId\":12,", "no json"), invalid},
        {"no address", track(12), stream("\"trackId\":12,", R"({"urls":[]})"), invalid},
        {"empty address", track(12), stream("\"trackId\":12,", R"({"urls":[""]})"), invalid},
        {"reference as address", track(12),
         stream("\"trackId\":12,", R"({"urls":["tidalitem://12"]})"), invalid},
    };
    int played = 0;
    int answers = 0;
    for (const Case& c : cases) {
        for (const bool isTrackFirst : {true, false}) {
            SCOPED_TRACE(std::string(c.name) + (isTrackFirst ? ", track first" : ", stream first"));
            m_service.script(trackPath, {c.trackAnswer});
            m_service.script(streamPath, {c.streamAnswer});
            m_service.hold(trackPath);
            m_service.hold(streamPath);
            const int before = m_service.requestCount(trackPath);
            const CMSetDataRequest request = playId(12);
            // Both are asked for at once.
            ASSERT_TRUE(m_service.waitForRequests(trackPath, before + 2));
            ++answers;
            m_service.releaseAll(isTrackFirst ? trackPath : streamPath);
            ASSERT_TRUE(
                m_probe->waitFor(isTrackFirst ? AnswerProbe::Track : AnswerProbe::Stream, answers));
            m_service.releaseAll(isTrackFirst ? streamPath : trackPath);
            ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Track, answers));
            ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Stream, answers));
            EXPECT_EQ(errorOf(request), q(c.error));
            played += *c.error ? 0 : 1;
            ASSERT_EQ(m_player.played().size(), played);
        }
    }
    for (const KeloRoles& item : m_player.played()) {
        EXPECT_EQ(item.title(), q("Song"));
        EXPECT_EQ(item.type(), KeloRolesType::Audio());
        EXPECT_EQ(item.icon(), q("http://images/ab/cd/ef/320x320.jpg"));
        EXPECT_EQ(item.path(), CMPath(q("/tidal/playId")));
        const KeloMediaData mediaData = item.mediaData();
        EXPECT_EQ(mediaData.metaData().album(), q("It"));
        EXPECT_EQ(mediaData.metaData().artist(), q("Her"));
        EXPECT_EQ(mediaData.metaData().serviceID(), q("tidal"));
        ASSERT_EQ(mediaData.resources().size(), 1);
        EXPECT_EQ(mediaData.resources().first().uri(), q("http://a/1"));
        EXPECT_EQ(mediaData.resources().first().mimeType(), q("audio/flac"));
        EXPECT_EQ(mediaData.resources().first().maxIdleTime(), 30000);
    }
}

TEST_F(WorkerPlayTest, RefusesWhatIsNoPlayRequest)
{
    const QVariantHash noData{{q("metaData"), QVariantHash{{q("album"), q("x")}}}};
    struct Case
    {
        const char* path;
        QString role;
        QVariant value;
        const char* error;
    };
    const Case cases[] = {
        {"/tidal/playId", KeloRoles::Value(), 12, "track id not set"},
        {"/tidal/playId", KeloRoles::Value(), QVariantHash{{q("id"), q("")}},
         "invalid play request data"},
        {"/tidal/playId", KeloRoles::Value(), QVariantHash{{q("id"), q("../users/1")}},
         "invalid play request data"},
        {"/tidal/playMedia", KeloRoles::PrePlay(), noData, "prePlayData not set"},
        {"/tidal/prePlay", KeloRoles::PrePlay(), 1, "invalid play request data"},
        {"/tidal/getMedia", KeloRoles::Value(), q("12"), "track id not set"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(errorOf(set(q(c.path), c.value, c.role)), q(c.error)) << c.path;
    EXPECT_EQ(m_service.requestCount("/tracks"), 0);
    EXPECT_EQ(m_player.played().size(), 0);
}

TEST_F(WorkerPlayTest, ARowIsCompletedWithWhatItLacks)
{
    const CMSetDataRequest whole =
        set(q("/tidal/prePlay/12"), trackRow(true), KeloRoles::PrePlay());
    EXPECT_EQ(errorOf(whole), QString());
    EXPECT_EQ(whole.reply().value().toString(), q("playing"));
    EXPECT_EQ(m_service.requestCount(trackPath), 1); // the stream alone
    ASSERT_EQ(m_player.played().size(), 1);
    KeloRoles item = m_player.played().at(0);
    EXPECT_EQ(item.title(), q("Row title"));
    EXPECT_EQ(item.icon(), q("Row icon"));
    EXPECT_EQ(item.path(), CMPath(q("/tidal/prePlay/12")));
    EXPECT_EQ(item.mediaData().metaData().artist(), q("Row artist"));
    EXPECT_EQ(item.mediaData().metaData().startTime(), 5000);
    EXPECT_EQ(item.mediaData().metaData().contentPlayContextPath(), CMPath(q("/tidal/list")));

    const QVariant bare = trackRow(false).value(KeloRoles::MediaData());
    EXPECT_EQ(errorOf(set(q("/tidal/prePlay/12"), bare, KeloRoles::PrePlay())), QString());
    ASSERT_EQ(m_player.played().size(), 2);
    item = m_player.played().at(1);
    EXPECT_EQ(item.title(), q("Song"));
    EXPECT_EQ(item.mediaData().metaData().artist(), q("Her"));
    EXPECT_EQ(item.mediaData().metaData().startTime(), 5000);
}

TEST_F(WorkerPlayTest, MediaDataThatWereAskedForComeBackToBePlayed)
{
    for (const char* id : {"12", "tidalitem://12"}) {
        const CMSetDataRequest asked = set(q("/tidal/getMedia"), QVariantHash{{q("id"), q(id)}});
        EXPECT_EQ(errorOf(asked), QString());
        const KeloMediaData mediaData(KeloHash(asked.reply().value().toHash()));
        EXPECT_EQ(mediaData.metaData().prePlayData(), q("tidalitem://12"));
        EXPECT_EQ(mediaData.metaData().prePlayPath(), KeloTidalPlayMediaPath());
        EXPECT_EQ(mediaData.resources().value(0).mimeType(), q("text/plain"));
        EXPECT_EQ(errorOf(set(q("/tidal/playMedia"), mediaData.toVariant(), KeloRoles::PrePlay())),
                  QString());
    }
    ASSERT_EQ(m_player.played().size(), 2);
    EXPECT_TRUE(m_player.played().at(0).mediaData().metaData().allowSeekTime());
    // Another role is no play request.
    EXPECT_FALSE(errorOf(set(q("/tidal/playMedia"), 1)).isEmpty());
}

TEST_F(WorkerPlayTest, AsksForNoMoreThanTheSubscriptionAllows)
{
    EXPECT_EQ(errorOf(playId(12)), QString());
    EXPECT_NE(m_service.lastRequest(streamPath).find("audioquality=LOSSLESS"), std::string::npos);
    const std::pair<const char*, const char*> cases[] = {{"HI_RES", "HI_RES"}, {"NONE", "LOW"}};
    for (const auto& [highest, asked] : cases) {
        setLoggedIn(false);
        settle();
        m_service.script("/subscription",
                         {{200, std::string("{\"highestSoundQuality\":\"") + highest + "\"}"}});
        setLoggedIn(true);
        settle();
        EXPECT_EQ(errorOf(playId(12)), QString());
        EXPECT_NE(m_service.lastRequest(streamPath).find(std::string("audioquality=") + asked),
                  std::string::npos);
    }
}

TEST_F(WorkerPlayTest, ASecondRequestIsRefusedAndLeavesTheFirstAlone)
{
    m_service.hold(streamPath);
    const CMSetDataRequest first = playId(12);
    ASSERT_TRUE(m_service.waitForRequests(streamPath, 1));
    const char* const busy = "droping play request, busy";
    EXPECT_EQ(errorOf(playId(13)), q(busy));
    EXPECT_EQ(errorOf(set(q("/tidal/prePlay/13"), 1)), q(busy));
    EXPECT_EQ(errorOf(set(q("/tidal/playMedia"), 1, KeloRoles::PrePlay())), q(busy));
    m_service.releaseAll(streamPath);
    EXPECT_EQ(errorOf(first), QString());
    ASSERT_EQ(m_player.played().size(), 1);
    EXPECT_EQ(m_service.requestCount("/tracks/13"), 0);
}

TEST_F(WorkerPlayTest, AnAttemptThatWasGivenUpLeaksNothingIntoTheNext)
{
    m_service.script("/tracks/13", {track(13, "Next")});
    m_service.script("/tracks/13/playback", {stream("\"trackId\":13,", manifest)});
    m_service.hold("/tracks/13");
    m_service.hold(trackPath);
    m_service.hold(streamPath);
    CMDeadlines deadlines;
    deadlines.set = std::chrono::milliseconds(50);
    CMRoot().setDeadlines(deadlines);
    const CMSetDataRequest first = playId(12);
    ASSERT_TRUE(m_service.waitForRequests(trackPath, 2));
    EXPECT_FALSE(errorOf(first).isEmpty()); // by the deadline
    CMRoot().setDeadlines(CMDeadlines());

    const CMSetDataRequest second = playId(13);
    ASSERT_TRUE(m_service.waitForRequests("/tracks/13", 2));
    m_service.releaseAll(trackPath);
    m_service.releaseAll(streamPath);
    ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Track, 1));
    ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Stream, 2)); // that of 13 is not held
    EXPECT_FALSE(second.reply().isFinished());
    m_service.releaseAll("/tracks/13");
    EXPECT_EQ(errorOf(second), QString());
    ASSERT_EQ(m_player.played().size(), 1);
    EXPECT_EQ(m_player.played().first().title(), q("Next"));
}

TEST_F(WorkerPlayTest, ALateAnswerOfAnAttemptThatFailedLeavesTheNextAlone)
{
    const Answer late[] = {{404, R"({"status":404,"userMessage":"Gone"})"}, track(12), track(13)};
    int answers = 0;
    for (const Answer& answer : late) {
        for (const char* id : {"12", "13"}) {
            SCOPED_TRACE(answer.body + " then " + id);
            // The stream ends the first attempt while its track is still being looked up.
            m_service.script(streamPath,
                             {{404, R"({"status":404,"userMessage":"No"})"}, goodStream()});
            m_service.script(trackPath, {answer, track(12)});
            m_service.script("/tracks/13", {track(13)});
            m_service.script("/tracks/13/playback", {stream("\"trackId\":13,", manifest)});
            const int before = m_service.requestCount("/tracks");
            m_service.hold(trackPath);
            EXPECT_EQ(errorOf(playId(12)), q("No"));
            m_service.hold("/tracks/13");
            const CMSetDataRequest second = playId(q(id));
            ASSERT_TRUE(m_service.waitForRequests("/tracks", before + 4));
            m_service.releaseOne(trackPath, 0);
            ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Track, ++answers));
            EXPECT_FALSE(second.reply().isFinished());
            m_service.releaseAll(trackPath);
            m_service.releaseAll("/tracks/13");
            EXPECT_EQ(errorOf(second), QString());
            ASSERT_TRUE(m_probe->waitFor(AnswerProbe::Track, ++answers));
        }
    }
}

TEST_F(WorkerPlayTest, StoppingAnswersAnItemThatIsBeingLookedUp)
{
    m_service.hold(streamPath);
    const CMSetDataRequest request = playId(12);
    ASSERT_TRUE(m_service.waitForRequests(streamPath, 1));
    stop();
    EXPECT_FALSE(errorOf(request).isEmpty());
    m_service.releaseAll(streamPath);
}
} // namespace
