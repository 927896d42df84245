#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <QDir>
#include <QTemporaryDir>

namespace {

using testing::HasSubstr;

const cli::Terminal::Properties pipeProperties{cli::Terminal::unlimited, false, false};

/// A streamer with a list of which the terminal has seen rows 9 to 12.
class RowNamesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        streamer.state = {folder.filePath("kelo"), "7"};
        streamer.answer("GET /api/v1/rows?path=%2Fa&from=9&to=12",
                        {200, R"({"path":"/a","from":9,"rowsCount":99,"roles":{},"rows":[
{"Title":"Group","Type":"Header"},
{"Title":"Silver Sea","Type":"Container","Path":"/sea"},
{"Title":"Silver - Ann","Type":"Audio","Path":"/s1"},
{"Title":"Silver\tAge - Ann","Type":"Audio","Path":"/s2"}]})"});
        streamer.answer("POST /api/v1/player/play", {200, R"({"state":"stopped"})"});
        listed = streamer.run({"rows", "/a", "--from", "9", "--to", "12"}, pipeProperties);
    }

    QTemporaryDir folder;
    ScriptedStreamer streamer;
    ScriptedStreamer::Run listed;
};

TEST_F(RowNamesTest, PlayTakesNumbersAndTitlesOfTheLastListing)
{
    EXPECT_EQ(listed.out, "9\tHeader\tGroup\t\t\n10\tContainer\tSilver Sea\t\t/sea\n"
                          "11\tAudio\tSilver - Ann\t\t/s1\n12\tAudio\tSilver\\tAge - Ann\t\t/s2\n");
    for (const auto& [word, sent] :
         Table<std::string, std::string>{{"10", R"({"index":10,"list":"/a","path":"/sea"})"},
                                         {"silver", R"({"index":11,"list":"/a","path":"/s1"})"},
                                         {"SILVER S", R"({"index":10,"list":"/a","path":"/sea"})"},
                                         {"/s2?x=1", R"({"path":"/s2?x=1"})"},
                                         {"12345678", R"({"path":"12345678"})"}}) {
        const auto run = streamer.run({"play", word});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(streamer.calls().back(), "POST /api/v1/player/play " + sent);
    }
}

TEST_F(RowNamesTest, WhatNamesNoRowIsRefusedAndNothingIsSent)
{
    const size_t before = streamer.calls().size();
    for (const auto& [word, message] :
         Table<std::string, const char*>{{"9", "has no row 9"},
                                         {"13", "has no row 13"},
                                         {"gold", "listed last is called \"gold\""},
                                         {"si", "may be row 10, 11, 12"}}) {
        const auto run = streamer.run({"menu", word});
        EXPECT_EQ(run.status, 1) << word;
        EXPECT_THAT(run.err, HasSubstr(message));
    }
    EXPECT_EQ(streamer.calls().size(), before);
}

TEST_F(RowNamesTest, TheListingIsOfOneTerminalAndOneStreamerAndForTheUserAlone)
{
    const QFileInfo kept(folder.filePath("kelo/listing-7"));
    EXPECT_EQ(kept.permissions() & 0x077, QFile::Permissions()); // group and others
    ScriptedStreamer other;
    other.state = streamer.state;
    EXPECT_THAT(other.run({"play", "silver"}).err, HasSubstr("has listed nothing"));
    streamer.state = {folder.filePath("kelo"), "8"};
    EXPECT_THAT(streamer.run({"play", "silver"}).err, HasSubstr("has listed nothing"));
    for (int i = 0; i < 40; ++i) {
        streamer.state = {folder.filePath("kelo"), QString::number(100 + i)};
        streamer.run({"rows", "/a", "--from", "9", "--to", "12"});
    }
    EXPECT_EQ(QDir(folder.filePath("kelo")).entryList(QDir::Files).size(), 32);
}

} // namespace
