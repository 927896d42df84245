#pragma once
#include "Clock.h"
#include "ItemResolver.h"
#include "LaterCall.h"
#include "PlayerNotes.h"
#include "PlayerStatus.h"
#include "PlayerStore.h"
#include "QueueAdder.h"
#include "QueueReader.h"
#include "QueueStore.h"
#include <optional>

/// The player's logic: the present item, the queue behind it, and what happens when something
/// fails. Owned by Player; lives on the player's thread, where every operation is called. It opens
/// no network connection and decodes nothing: modules resolve, the output sounds.
///
/// Whatever leads to another item (a command, the end of the present one, a failure) is one chain:
/// find a row, resolve it, open it or hand it to the output as the next. A new chain supersedes the
/// one before. What comes next is always what stands in front of the queue: a row that cannot be
/// played leaves it, and comes back when nothing else plays either.
class PlayerEngine : public QObject
{
    Q_OBJECT
public:
    using Reply = CMReply<QVariant>;
    using Publish = std::function<void(const PlayerStatus&)>;

    PlayerEngine(std::unique_ptr<AudioOutput> output, Clock& clock, KeptRows& keptRows,
                 const QString& stateDir, Publish publish);
    /// Answers a command that still waits, with an error.
    ~PlayerEngine() override;

    void play(const CMPath& path, const RowFinder::Place& place, const Reply& reply);
    void playId(const QString& id, const Reply& reply);
    void pause(const Reply& reply);
    void resume(const Reply& reply);
    void stop(const Reply& reply);
    void next(const Reply& reply);
    void previous(const Reply& reply);
    void seek(qint64 positionMs, const Reply& reply);
    void setVolume(qint64 percent, const Reply& reply);
    void setShuffled(bool on, const Reply& reply);
    void setRepeat(PlayQueue::Repeat repeat, const Reply& reply);
    void editQueue(const QueueEdit& edit, const Reply& reply);
    /// Answers with the rows at some positions of the queue, as the web API shows them.
    void readQueue(int from, int to, const Reply& reply);
    /// An item that a module hands over.
    void accept(const KeloRoles& item) { m_resolver.take(item); }

private:
    using State = PlayerStatus::State;
    /// Within it a command has its answer, whatever the output does.
    static constexpr qint64 startLimitMs = 10000;

    struct Chain
    {
        enum Aim {
            None,    ///< no chain is under way
            Start,   ///< the item is opened when it is resolved
            Prefetch ///< it follows the present one without a gap
        };
        enum Of {
            Another, ///< another item than the present one
            Present, ///< the present item, again
            Retry    ///< the same, since its address failed
        };
        Aim aim = None;
        Of of = Another;
        int step = 1;       ///< direction in the list
        bool skips = false; ///< a failing item is passed over; else it ends the chain
        qint64 offsetMs = 0;
        QueueEntry at;            ///< the entry being resolved, or from which it started
        quint64 number = 0;       ///< tells it from other chains
        PlayQueue::Slot slot;     ///< of the entry being resolved, when it comes from the queue
        int position = 0;         ///< where that stands in the queue
        int backFrom = -1;        ///< row of the list before which to look; negative for none
        bool isOfHistory = false; ///< the entry played before
        bool isTaken = false;     ///< the entry is the queue's present one
        bool hasWrapped = false;  ///< the list has begun again
        int passed = 0;           ///< rows of the queue that cannot be played
        /// A command plays this, and what follows it in its list.
        std::optional<RowFinder::Found> begins;
    };

    /// What follows the present item.
    struct Next
    {
        enum State {
            Unknown, ///< not looked for
            Given,   ///< handed to the output
            Barred,  ///< failed early: looked for again at the end
            Nothing
        };
        State state = Unknown;
        PlayItem item;        ///< when given
        PlayQueue::Slot slot; ///< its place in front of the queue
        bool isSame = false;  ///< it is the present item once more
    };

    /// What there was before items failed, or were passed over, one after the other.
    struct Before
    {
        PlayQueue queue;
        PlayItem item;
    };

    /// What broke off while it played.
    struct Broken
    {
        PlayItem item;
        qint64 positionMs = 0;
        TrString text; ///< why
    };

    // PlayerEngine.cpp: commands.
    void command(const Reply& reply);
    void succeed();
    void fail(const TrString& text);
    /// Ends the sound; `resume` goes on from the position.
    void halt(qint64 resumeMs = 0);
    /// Ends the sound where it broke off, if it did, so that `resume` goes on there.
    void haltAtBreak();
    qint64 positionMs() const;
    qint64 durationMs() const;
    void publish();
    void save();
    void addNote(const TrString& text);
    bool isSounding() const { return m_state == State::Playing || m_state == State::Paused; }
    void pauseOutput();
    void tick();
    void startTicking();

    // PlayerEngineQueue.cpp: commands to the queue, and its changes.
    void loadQueue();
    void addToQueue(const QueueEdit& edit, const Reply& reply);
    /// Plays a slot that stands at a position, or before it.
    void jump(PlayQueue::Slot slot, int position, const Reply& reply);
    QVariant queueState() const;
    QVariantList rowsOf(const QueueReader::Rows& rows, int from) const;
    /// The queue is another: follows its list and keeps it.
    void queueChanged();
    /// Writes it. Whether there is a note on it.
    bool keepQueue();
    /// As queueChanged(), not by the chain: looks for the next item again, unless it stays.
    void queueEdited();
    /// The queue can be as it is now again, unless somebody edits it.
    void remember();
    void restore(bool withItem);
    void forgetBefore() { m_before.reset(); }
    void begin(const RowFinder::Found& found);
    /// Plays what a module handed over because somebody else asked it.
    void playUnasked(const KeloRoles& item);

    // PlayerEngineChain.cpp: from a row to an item.
    void startChain(Chain::Aim aim, const QueueEntry& at);
    void endChain();
    void walk();
    void readFront();
    void walkBack();
    void onFront(const QueueReader::Rows& rows);
    void onQueueEnd();
    void onFound(const RowFinder::Found& found);
    void onFoundBefore(const RowFinder::Found& found);
    /// What is being resolved becomes the queue's present row.
    void commit();
    void takeNext();
    void onListEnd(const RowFinder::Found& found);
    void resolve();
    void onResolved(const CMError& error, const KeloRoles& completed);
    void onItemFailed(const TrString& text);
    /// Ends a chain that found nothing to open; what plays goes on.
    void refuse(const TrString& text);
    void openItem(const PlayItem& item);
    void prefetch();
    /// The present item once more, or what follows it.
    void goOn();
    void endList();

    // PlayerEngineOutput.cpp: events of the output.
    void connectOutput();
    void onStarted();
    void onAboutToFinish();
    void onItemChanged(const QString& uri);
    void onFinished();
    void onError(const OutputError& error);
    /// Gives the output what is left of the command's limit to start what was opened.
    void limitStart();
    void endStartLimit();
    void onStartLimit();
    bool isWorthARetry(const OutputError& error) const;
    void onNextRefused(const OutputError& error);

    Clock& m_clock;
    std::unique_ptr<AudioOutput> m_output;
    Publish m_publish;
    PlayerStore m_store;
    QueueStore m_queueStore;
    PlayQueue m_queue;
    ListRows m_rows;
    RowFinder m_finder{m_rows};
    QueueReader m_reader;
    QueueAdder m_adder{m_rows};
    ItemResolver m_resolver{[this](const KeloRoles& item) { playUnasked(item); }};
    std::unique_ptr<Before> m_before; ///< null while nothing failed

    State m_state = State::Stopped;
    int m_volume = 100;
    PlayItem m_item;       ///< what plays or was asked for last
    qint64 m_resumeMs = 0; ///< while stopped: where resume begins in the item
    Broken m_broken;       ///< holds no item once anything plays again
    Next m_next;
    Chain m_chain;
    quint64 m_chains = 0; ///< so far
    Reply m_reply;        ///< the command that waits for the chain; null when none does
    PlayerNotes m_notes;
    bool m_isPauseWanted = false; ///< the item is to start paused
    int m_failures = 0;           ///< items in a row that failed; reset when one plays
    LaterCall m_startLimit{m_clock, this};
    qint64 m_startLeftMs = 0;             ///< the items that one command tries share one limit
    std::optional<qint64> m_limitSinceMs; ///< set while the limit runs
    LaterCall m_tick{m_clock, this};
    LaterCall m_saveQueue{m_clock, this};
    bool m_isQueueUnsaved = false;
    qint64 m_pausedAtMs = 0;
    qint64 m_savedAtMs = 0;
};
