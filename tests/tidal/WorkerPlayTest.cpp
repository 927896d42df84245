#include "ModuleTest.h"
#include "Table.h"
#include <kelo/HttpCallLog.h>

namespace {
const char* const trackPath = "/tracks/12";
const char* const trackAddress = "/tracks/12?";
const char* const streamPath = "/tracks/12/playbackinfopostpaywall";

using Answer = ScriptedService::Answer;

Answer track(int id)
{
    return {200, "{\"id\":" + std::to_string(id) + R"(,"title":"Song","artist":{"name":"Her"},
                     "album":{"title":"It","cover":"ab-cd-ef"}})"};
}

Answer stream(const std::string& trackId, const QByteArray& manifest,
              const std::string& type = "application/vnd.tidal.bts")
{
    return {200, "{" + trackId + R"("manifestMimeType":")" + type + R"(","manifest":")" +
                     manifest.toBase64().toStdString() + "\"}"};
}

const QByteArray manifest = R"({"mimeType":"audio/flac","urls":["http://a/1","http://a/2"]})";
const std::string id12 = "\"trackId\":12,", id13 = "\"trackId\":13,";

/// A row of track 12 as the module lists it.
QVariantHash trackRow(const QVariantHash& artist)
{
    KeloMetaData metaData{KeloHash(artist)};
    metaData.setServiceID("tidal");
    metaData.setAlbum("Row album");
    metaData.setPrePlayTimeOffset(5000);
    metaData.setContentPlayContextPath(CMPath("/tidal/list"));
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({KeloResource()});
    return {{KeloRoles::MediaData(), mediaData.toVariant()},
            {KeloRoles::Title(), "Row title"},
            {KeloRoles::Icon(), "Row icon"},
            {KeloRoles::Type(), KeloRolesType::Audio()}};
}

class WorkerPlayTest : public ScriptedTest
{
protected:
    void SetUp() override
    {
        startConfigured();
        m_service.script(trackPath, {track(12)});
        m_service.script(streamPath, {stream(id12, manifest)});
    }
    CMSetDataRequest playId(const QVariant& id)
    {
        return set("/tidal/playId", QVariantHash{{"id", id}});
    }
    /// Waits until so many calls to addresses that contain a text have ended, and the module has
    /// dealt with them; false when they do not end in time.
    bool waitForAnswers(const QString& part, int count)
    {
        HttpCallLog& log = HttpCallLog::instance();
        std::mutex mutex;
        std::condition_variable ended;
        const auto areEnough = [&] {
            const QVector<HttpCallRecord> calls = log.recordsAfter(m_callsBefore);
            return count <= std::count_if(calls.begin(), calls.end(), [&](const auto& call) {
                       return call.address().contains(part);
                   });
        };
        const quint64 observer = log.addObserver([&](const HttpCallRecord&) {
            std::lock_guard<std::mutex> lock(mutex);
            ended.notify_all();
        });
        std::unique_lock<std::mutex> lock(mutex);
        const bool haveCome = ended.wait_for(lock, std::chrono::seconds(20), areEnough);
        lock.unlock();
        log.removeObserver(observer);
        settle();
        return haveCome;
    }

    const quint64 m_callsBefore = HttpCallLog::instance().lastNumber();
};

TEST_F(WorkerPlayTest, PlaysWhateverAnswerComesFirstAndFailsInOneWay)
{
    const char* const incomplete = "media data resolution incomplete";
    const char* const invalid = "invalid manifest";
    const char* const failed = "media data request failed";
    const Answer good = stream(id12, manifest);
    int expected = 0;
    int answers = 0;

    // error: empty: it plays
    for (const auto& [name, trackAnswer, streamAnswer, error] :
         Table<const char*, Answer, Answer, const char*>{
             {"both", track(12), good, ""},
             {"stream without id", track(12), stream("", manifest), incomplete},
             {"another track", track(13), good, incomplete},
             {"no album", {200, R"({"id":12,"artist":{},"album":null})"}, good, incomplete},
             {"track refused", {404, R"({"status":404,"userMessage":"Gone"})"}, good, "Gone"},
             {"error unread", {500, "<html>"}, good, "Error, failed to parse error message"},
             {"error in a good answer", {200, R"({"status":404})"}, good, failed},
             {"stream refused", track(12), {401, R"({"status":401,"userMessage":"No"})"}, "No"},
             {"other manifest", track(12), stream(id12, manifest, "application/vnd.TIDAL.bts"),
              "unsupported manifest type"},
             {"broken manifest", track(12), stream(id12, "no json"), invalid},
             {"reference as address", track(12), stream(id12, R"({"urls":["tidalitem://12"]})"),
              invalid}}) {
        for (const bool isTrackFirst : {true, false}) {
            SCOPED_TRACE(std::string(name) + (isTrackFirst ? ", track first" : ", stream first"));
            m_service.script(trackPath, {trackAnswer});
            m_service.script(streamPath, {streamAnswer});
            m_service.hold(trackPath);
            m_service.hold(streamPath);
            const int before = m_service.requestCount(trackPath);
            const CMSetDataRequest request = playId(12);
            // Both are asked for at once.
            ASSERT_TRUE(m_service.waitForRequests(trackPath, before + 2));
            ++answers;
            m_service.releaseAll(isTrackFirst ? trackPath : streamPath);
            ASSERT_TRUE(waitForAnswers(isTrackFirst ? trackAddress : streamPath, answers));
            m_service.releaseAll(isTrackFirst ? streamPath : trackPath);
            ASSERT_TRUE(waitForAnswers(isTrackFirst ? streamPath : trackAddress, answers));
            EXPECT_EQ(errorOf(request), error);
            expected += *error ? 0 : 1;
            ASSERT_EQ(played().size(), expected);
        }
    }
    for (const KeloRoles& item : played()) {
        EXPECT_EQ(item.title(), "Song");
        EXPECT_EQ(item.type(), KeloRolesType::Audio());
        EXPECT_EQ(item.icon(), "http://images/ab/cd/ef/320x320.jpg");
        EXPECT_EQ(item.path(), CMPath("/tidal/playId"));
        const KeloMediaData mediaData = item.mediaData();
        EXPECT_EQ(mediaData.metaData().album(), "It");
        EXPECT_EQ(mediaData.metaData().artist(), "Her");
        EXPECT_EQ(mediaData.metaData().serviceID(), "tidal");
        ASSERT_EQ(mediaData.resources().size(), 1);
        EXPECT_EQ(mediaData.resources().first().uri(), "http://a/1");
        EXPECT_EQ(mediaData.resources().first().mimeType(), "audio/flac");
        EXPECT_EQ(mediaData.resources().first().maxIdleTime(), 30000);
    }
}

TEST_F(WorkerPlayTest, RefusesWhatIsNoPlayRequest)
{
    const QVariantHash noData{{"metaData", QVariantHash{{"album", "x"}}}};
    for (const auto& [path, role, value, error] :
         Table<const char*, QString, QVariant, const char*>{
             {"/tidal/playId", KeloRoles::Value(), 12, "track id not set"},
             {"/tidal/playId", KeloRoles::Value(), QVariantHash{{"id", ""}},
              "invalid play request data"},
             {"/tidal/playId", KeloRoles::Value(), QVariantHash{{"id", "../users/1"}},
              "invalid play request data"},
             {"/tidal/playMedia", KeloRoles::PrePlay(), noData, "prePlayData not set"},
             {"/tidal/prePlay", KeloRoles::PrePlay(), 1, "invalid play request data"},
             {"/tidal/getMedia", KeloRoles::Value(), "12", "track id not set"}})
        EXPECT_EQ(errorOf(set(path, value, role)), error) << path;
    EXPECT_EQ(m_service.requestCount("/tracks"), 0);
    EXPECT_EQ(played().size(), 0);
}

TEST_F(WorkerPlayTest, ARowIsCompletedWithWhatItLacks)
{
    const CMSetDataRequest whole =
        set("/tidal/prePlay/12", trackRow({{KeloMetaData::Artist(), "Row artist"}}),
            KeloRoles::PrePlay());
    EXPECT_EQ(errorOf(whole), "");
    EXPECT_EQ(whole.reply().value().toString(), "playing");
    EXPECT_EQ(m_service.requestCount(trackPath), 1); // the stream alone
    const QVariant bare = trackRow({}).value(KeloRoles::MediaData());
    EXPECT_EQ(errorOf(set("/tidal/prePlay/12", bare, KeloRoles::PrePlay())), "");
    ASSERT_EQ(played().size(), 2);

    const KeloRoles row = played().at(0);
    EXPECT_EQ(row.title(), "Row title");
    EXPECT_EQ(row.icon(), "Row icon");
    EXPECT_EQ(row.path(), CMPath("/tidal/prePlay/12"));
    const KeloMetaData metaData = row.mediaData().metaData();
    EXPECT_EQ(metaData.artist(), "Row artist");
    EXPECT_EQ(metaData.startTime(), 5000);
    EXPECT_EQ(metaData.contentPlayContextPath(), CMPath("/tidal/list"));
    const KeloRoles item = played().at(1);
    EXPECT_EQ(item.title(), "Song");
    EXPECT_EQ(item.mediaData().metaData().artist(), "Her");
    EXPECT_EQ(item.mediaData().metaData().startTime(), 5000);
}

TEST_F(WorkerPlayTest, MediaDataThatWereAskedForComeBackToBePlayed)
{
    for (const char* id : {"12", "tidalitem://12"}) {
        const CMSetDataRequest asked = set("/tidal/getMedia", QVariantHash{{"id", id}});
        EXPECT_EQ(errorOf(asked), "");
        const KeloMediaData mediaData(KeloHash(asked.reply().value().toHash()));
        EXPECT_EQ(mediaData.metaData().prePlayData(), "tidalitem://12");
        EXPECT_EQ(mediaData.metaData().prePlayPath(), KeloTidalPlayMediaPath());
        EXPECT_EQ(mediaData.resources().value(0).mimeType(), "text/plain");
        EXPECT_EQ(errorOf(set("/tidal/playMedia", mediaData.toVariant(), KeloRoles::PrePlay())),
                  "");
    }
    ASSERT_EQ(played().size(), 2);
    EXPECT_TRUE(played().at(0).mediaData().metaData().allowSeekTime());
    // Another role is no play request.
    EXPECT_NE(errorOf(set("/tidal/playMedia")), "");
}

TEST_F(WorkerPlayTest, AsksForNoMoreThanTheSubscriptionAllows)
{
    const QString lossless = "LOSSLESS";
    for (const auto& [highest, asked] :
         {std::pair(lossless, lossless), {"HI_RES", "HI_RES"}, {"NONE", "LOW"}, {"HIGH", "HIGH"}}) {
        setLoggedIn(false);
        settle();
        m_service.script("/subscription",
                         {{200, "{\"highestSoundQuality\":\"" + highest.toStdString() + "\"}"}});
        setLoggedIn(true);
        settle();
        EXPECT_EQ(errorOf(playId(12)), "");
        EXPECT_EQ(m_service.requests(streamPath).back(),
                  "GET " + std::string(streamPath) +
                      "?countryCode=NO&playbackmode=STREAM&assetpresentation=FULL&audioquality=" +
                      asked.toStdString());
    }
}

TEST_F(WorkerPlayTest, ASecondRequestIsRefusedAndLeavesTheFirstAlone)
{
    m_service.hold(streamPath);
    const CMSetDataRequest first = playId(12);
    ASSERT_TRUE(m_service.waitForRequests(streamPath, 1));
    const char* const busy = "droping play request, busy";
    EXPECT_EQ(errorOf(playId(13)), busy);
    EXPECT_EQ(errorOf(set("/tidal/prePlay/13")), busy);
    EXPECT_EQ(errorOf(set("/tidal/playMedia", 1, KeloRoles::PrePlay())), busy);
    m_service.releaseAll(streamPath);
    EXPECT_EQ(errorOf(first), "");
    ASSERT_EQ(played().size(), 1);
    EXPECT_EQ(m_service.requestCount("/tracks/13"), 0);
}

TEST_F(WorkerPlayTest, AnAttemptThatWasGivenUpDoesNotPlayAndLeavesRoomForTheNext)
{
    m_service.hold(trackPath);
    CMDeadlines deadlines;
    deadlines.set = std::chrono::milliseconds(50);
    CMRoot().setDeadlines(deadlines);
    EXPECT_EQ(setAndWait("/tidal/playId", QVariantHash{{"id", 12}}).reply().error().name(),
              CMError::DeadlineName());
    CMRoot().setDeadlines(CMDeadlines());
    const CMSetDataRequest second = playId(12);
    ASSERT_TRUE(m_service.waitForRequests(trackPath, 4));
    m_service.releaseAll(trackPath);
    EXPECT_EQ(errorOf(second), "");
    EXPECT_EQ(played().size(), 1);
}

TEST_F(WorkerPlayTest, ALateAnswerOfAnAttemptThatFailedLeavesTheNextAlone)
{
    int answers = 0;
    for (const Answer& late : {Answer{404, R"({"status":404,"userMessage":"Gone"})"}, track(12)}) {
        for (const char* id : {"12", "13"}) {
            SCOPED_TRACE(late.body + " then " + id);
            // The stream ends the first attempt while its track is still being looked up.
            m_service.script(streamPath, {{404, R"({"status":404,"userMessage":"No"})"},
                                          stream(id12, manifest)});
            m_service.script(trackPath, {late, track(12)});
            m_service.script("/tracks/13", {track(13)});
            m_service.script("/tracks/13/playback", {stream(id13, manifest)});
            const int before = m_service.requestCount("/tracks");
            m_service.hold(trackPath);
            EXPECT_EQ(errorOf(playId(12)), "No");
            ASSERT_TRUE(m_service.waitForRequests("/tracks", before + 2));
            m_service.hold("/tracks/13");
            const CMSetDataRequest second = playId(id);
            ASSERT_TRUE(m_service.waitForRequests("/tracks", before + 4));
            m_service.releaseOne(trackPath, 0);
            ASSERT_TRUE(waitForAnswers(trackAddress, ++answers));
            EXPECT_FALSE(second.reply().isFinished());
            m_service.releaseAll(trackPath);
            m_service.releaseAll("/tracks/13");
            EXPECT_EQ(errorOf(second), "");
            answers += id == q("12");
        }
    }
}
} // namespace
