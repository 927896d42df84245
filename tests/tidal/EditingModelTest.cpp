#include "ModuleTest.h"
#include <random>
#include <thread>

namespace {
using Tracks = QList<qint64>;

/// One edit of a playlist, and what it makes of a plain list.
struct Edit
{
    enum Kind { AddTrack, AddList, Remove, Move };
    Kind kind;
    int row = 0;
    int to = 0;
    Tracks added;

    bool isInRange(const Tracks& tracks) const
    {
        return kind == AddTrack || kind == AddList || row < tracks.size();
    }
    Tracks applied(Tracks tracks) const
    {
        if (!isInRange(tracks))
            return tracks;
        if (kind == Remove)
            tracks.removeAt(row);
        else if (kind == Move)
            tracks.move(row, qMin(to, tracks.size() - 1));
        else
            tracks += added;
        return tracks;
    }
};

/// What goes wrong meanwhile.
enum class Trouble { None, TagLag, NoBody, EditReset, ReadReset, OtherClient };

/// Plays random edits against the simulated service and a plain list.
class EditingModel : public SimulatedTest
{
protected:
    void playSequence(int seed)
    {
        SCOPED_TRACE(seed);
        m_random.seed(std::mt19937::result_type(seed));
        m_source = m_pool.mid(0, number(0, 3));
        m_sourceId = newPlaylist("source", m_source);
        m_model = m_pool.mid(0, number(0, 6));
        m_id = newPlaylist("edited", m_model);
        for (int i = number(2, 6); i > 0 && !m_id.isEmpty() && !HasFailure(); --i)
            playEdit(randomEdit(), randomTrouble());
        const QString remove = "/tidal/playlistcontext/removeFromPlaylists?type=Playlists&id=";
        EXPECT_EQ(errorOf(set(remove + m_sourceId)), "");
        EXPECT_EQ(read("/playlists/" + m_sourceId).value("_status").toInt(), 404);
    }

private:
    int number(int from, int to)
    {
        return from + int(m_random() % std::mt19937::result_type(to - from + 1));
    }

    Edit randomEdit()
    {
        Edit edit{Edit::Kind(number(0, 3)), number(0, m_model.size()), number(0, 8), {}};
        if (edit.kind == Edit::AddTrack)
            edit.added = {m_pool.at(number(0, m_pool.size() - 1))};
        else if (edit.kind == Edit::AddList)
            edit.added = m_source;
        return edit;
    }

    /// Mostly none; those that end at the deadline are rare, since they take that long.
    Trouble randomTrouble()
    {
        const int roll = number(0, 99);
        if (roll < 2)
            return Trouble::ReadReset;
        if (roll < 10)
            return Trouble::EditReset;
        if (roll < 20)
            return Trouble::NoBody;
        if (roll < 40)
            return Trouble::TagLag;
        return roll < 55 ? Trouble::OtherClient : Trouble::None;
    }

    void inForce(Trouble trouble, const Edit& edit)
    {
        const std::string path = "path=/playlists/" + m_id.toStdString() + " count=";
        const std::string method = edit.kind == Edit::Remove ? "method=DELETE " : "method=POST ";
        std::string fault;
        if (trouble == Trouble::TagLag)
            fault = "tag-lag " + path + std::to_string(number(1, 4));
        else if (trouble == Trouble::NoBody)
            fault = "refuse-no-body " + path + "1";
        else if (trouble == Trouble::EditReset)
            fault = (number(0, 1) ? "reset when=after " : "reset ") + method + path + "1";
        else if (trouble == Trouble::ReadReset)
            fault = "reset method=GET " + path + "1";
        EXPECT_EQ(fault.empty() ? std::string() : m_sim.addFault(fault), "");
    }

    /// Whether nothing can be said about the edit, so that its request ends at its deadline.
    static bool isUnanswered(const Edit& edit, Trouble trouble, const Tracks& before)
    {
        if (trouble == Trouble::ReadReset)
            return true;
        if (edit.kind != Edit::Move)
            return false;
        return trouble == Trouble::EditReset ||
               (trouble == Trouble::NoBody && !edit.isInRange(before));
    }

    CMSetDataRequest send(const Edit& edit)
    {
        const QString remove = "/tidal/playlistcontext/removeFromPlaylists?type=Tracks&rowNum=%1";
        const QString move = "/tidal/myPlaylistTrackscontext/moveTrack";
        const QString paths[] = {
            q("/tidal/context/addToPlaylists?type=Tracks&id=%1").arg(edit.added.value(0)),
            "/tidal/playlistcontext/addToPlaylists?type=Playlists&id=" + m_sourceId,
            remove.arg(edit.row), (move + "/move?rowNum=%1").arg(edit.row)};
        if (edit.kind == Edit::Move)
            setAndWait(move + "/rowNum", edit.to);
        return setAndWait(paths[edit.kind] + "&playlistId=" + m_id);
    }

    /// Another client appends a track; as often as it takes.
    void appendElsewhere(qint64 track)
    {
        const QString path = "/playlists/" + m_id;
        const QByteArray body = "trackIds=" + QByteArray::number(track) + "&toIndex=-1";
        for (int status = 412; status == 412;)
            status = post(path + "/tracks", body, read(path).value("_etag").toString())
                         .value("_status")
                         .toInt();
    }

    void playEdit(Edit edit, Trouble trouble)
    {
        // An empty list adds nothing, which the service refuses.
        const Tracks before = m_model;
        const Tracks after = edit.applied(before);
        const bool isUnansweredEdit = isUnanswered(edit, trouble, before);
        inForce(trouble, edit);
        const Edit others{Edit::AddTrack, 0, 0, {m_pool.last()}};
        std::thread other;
        if (trouble == Trouble::OtherClient)
            other = std::thread([this, &others] { appendElsewhere(others.added.first()); });
        const CMSetDataRequest request = send(edit);
        if (other.joinable())
            other.join();
        m_sim.clearFaults();

        const CMError error = request.reply().error();
        const bool isGivenUp = error.name() == CMError::NoAnswerName();
        EXPECT_TRUE(!isGivenUp || isUnansweredEdit) << int(edit.kind) << " " << int(trouble);
        EXPECT_TRUE(!error.isSet() || isGivenUp || edit.kind == Edit::Move);
        QList<Tracks> allowed;
        if (trouble == Trouble::OtherClient && error.isSet())
            allowed = {others.applied(before)};
        else if (trouble == Trouble::OtherClient)
            allowed = {others.applied(after), edit.applied(others.applied(before))};
        else if (trouble == Trouble::ReadReset && isGivenUp)
            allowed = {before, after};
        else if (trouble == Trouble::EditReset || error.isSet())
            allowed = {before};
        else
            allowed = {after};
        m_model = tracksIn(m_id);
        EXPECT_TRUE(allowed.contains(m_model))
            << "edit " << int(edit.kind) << " row " << edit.row << " to " << edit.to << " trouble "
            << int(trouble) << " of " << before.size() << " made " << m_model.size();
        EXPECT_EQ(tracksIn(m_sourceId), m_source);
        // What may still be on its way can change the list behind the model.
        if (isGivenUp)
            m_id.clear();
    }

    std::mt19937 m_random;
    const Tracks m_pool = playable("/featured/new/tracks?limit=50").mid(0, 12);
    Tracks m_source; ///< of the playlist that is added as a whole
    QString m_sourceId;
    Tracks m_model; ///< of the playlist that is edited
    QString m_id;   ///< empty when what became of it is not known
};

/// Another --gtest_random_seed plays other sequences.
TEST_F(EditingModel, TheServiceHoldsWhatTheEditsSay)
{
    constexpr int sequences = 150;
    const int first = testing::GTEST_FLAG(random_seed) * sequences;
    for (int i = 0; i < sequences && !HasFailure(); ++i)
        playSequence(first + i);
}
} // namespace
