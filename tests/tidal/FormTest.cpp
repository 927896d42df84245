#include "ModuleTest.h"

namespace {
const QString create = "/tidal/createPlaylist";
const QString update = "/tidal/updatePlaylists";

/// The two forms, as a screen fills them in.
class FormTest : public ScriptedTest
{
protected:
    void fill(const QString& form, const QString& title, const QString& description)
    {
        EXPECT_EQ(errorOf(set(form + "/title", title)), "");
        EXPECT_EQ(errorOf(set(form + "/description", description)), "");
    }
    /// Both fields once the worker is idle: a form is cleared in the turn in which it is answered.
    QString fields(const QString& form)
    {
        settle();
        return CMRoot().value(CMPath(form + "/title")).string_() + ' ' +
               CMRoot().value(CMPath(form + "/description")).string_();
    }
    /// Submits the form as it was opened under these parameters: by the accept path of its rows.
    CMSetDataRequest accept(const QString& form, const QString& params = QString())
    {
        const CMGetRowsRequest rows = askRows(form + params);
        EXPECT_EQ(errorOf(rows), "");
        return set(rows.reply().value().roles().value(KeloRoles::AcceptPath()).toString());
    }
    static QString onlyEvent(const KeloActionReply& reply)
    {
        return reply.events().size() == 1 ? reply.events().first().path().toEncoded() : "";
    }
};

TEST_F(FormTest, KeepsWhatWasFilledInUntilTheServiceTakesIt)
{
    const ScriptedService::Answer refusal = {400, R"({"status":400,"userMessage":"No"})"};
    m_service.script("/users/4005/playlists", {refusal, {201, R"({"uuid":"u-1"})"}});
    m_service.script("/playlists/u-1", {refusal, {200, ""}});
    const QString params = "?id=wrong&playlistId=u-1";
    fill(create, "t", "d");
    fill(update, "u", "e");
    EXPECT_EQ(errorOf(accept(create)), "No");
    EXPECT_EQ(errorOf(accept(update, params)), "No");
    EXPECT_EQ(fields(create), "t d");
    EXPECT_EQ(fields(update), "u e");

    const KeloActionReply made = actionOf(accept(create));
    EXPECT_EQ(onlyEvent(made), create);
    EXPECT_TRUE(made.result().isEmpty());
    const KeloActionReply changed = actionOf(accept(update, params));
    EXPECT_EQ(onlyEvent(changed), update);
    EXPECT_EQ(changed.result().path(), CMPath("/tidal/myMusic"));
    EXPECT_EQ(fields(create) + fields(update), "  ");
}
} // namespace
