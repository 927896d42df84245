#include "Table.h"
#include <future>
#include <gtest/gtest.h>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMQueryNode.h>
#include <kelo/CMRoot.h>
#include <kelo/CMValueItem.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloForm.h>
#include <kelo/KeloPost.h>
#include <QEventLoop>

namespace {
CMPath path(const char* encoded)
{
    return CMPath::fromEncoded(QString::fromUtf8(encoded));
}

const QStringList shortRoles{KeloRoles::Path(), KeloRoles::Title(), KeloRoles::Disabled()};

/// A worker with one node of each kind; "/demo/hold" keeps its request, "/demo/drop" forgets it.
class DemoWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    DemoWorker() : CMNodesWorker({}, QStringLiteral("demo"))
    {
        auto* top = CMListRowsNode::create(nodes(), addPrefix(QString()));
        top->setTitle(TrString(QStringLiteral("Demo")));
        list = CMListRowsNode::create(nodes(), addPrefix(QStringLiteral("list")));
        list->setCopyPathParams(true);
        for (int i = 0; i < 3; ++i) {
            KeloRoles row;
            row.setTitle(QString::number(i));
            list->rowsAppend(row);
        }
        value = CMValueNode::create(nodes(), addPrefix(QStringLiteral("value")));
        value->setTitle(TrString(QStringLiteral("Value")));
        value->setContextPath(addPrefix(QStringLiteral("list")));
        list->rowsAppend(value->path());
        list->rowsAppend(path("/demo/nowhere"));
        secret = CMValueNode::create(nodes(), addPrefix(QStringLiteral("secret")));
        secret->setSecret(true);
        action = CMActivateNode::create(nodes(), addPrefix(QStringLiteral("action")), this,
                                        SLOT(on_action(CMSetDataRequest)), Qt::QueuedConnection);
        action->setBusyText(TrString(QStringLiteral("busy")));
        CMActivateNode::create(nodes(), addPrefix(QStringLiteral("nothing")), nullptr, nullptr,
                               Qt::QueuedConnection);
        auto* hold = CMActivateNode::create(nodes(), addPrefix(QStringLiteral("hold")), this,
                                            SLOT(on_hold(CMSetDataRequest)), Qt::DirectConnection);
        hold->setActivateRole(KeloRoles::PrePlay());
        CMActivateNode::create(nodes(), addPrefix(QStringLiteral("drop")), this,
                               SLOT(on_drop(CMSetDataRequest)), Qt::QueuedConnection);
        auto* query = CMQueryNode::create(nodes(), addPrefix(QStringLiteral("search")));
        query->setQuery(QStringLiteral("query"));
        query->setQueryPath(list->path());
        form = new KeloForm(nodes(), addPrefix(QStringLiteral("form")));
        form->container()->setAcceptPath(addPrefix(QStringLiteral("action")));
    }

    CMListRowsNode* list;
    CMValueNode* value;
    CMValueNode* secret;
    CMActivateNode* action;
    KeloForm* form;
    std::promise<void> entered;
    CMSetDataRequest held;

private Q_SLOTS:
    void on_action(const CMSetDataRequest& request) { request.reply().setValue(42); }
    void on_drop(const CMSetDataRequest&) {}
    void on_hold(const CMSetDataRequest& request)
    {
        held = request;
        entered.set_value();
    }
};

class TreeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        worker = static_cast<DemoWorker*>(thread.start("demo", [] { return new DemoWorker; }));
        ASSERT_TRUE(worker);
    }

    KeloRowsRoles rows(const char* encoded, int from = 0, int to = 49)
    {
        const CMGetRowsRequest request(path(encoded), from, to, shortRoles);
        CMRoot().request(request);
        EXPECT_TRUE(request.reply().waitForFinished(10000));
        lastError = request.reply().error();
        return request.reply().value();
    }
    CMReply<QVariant> set(const char* encoded, const QVariant& value,
                          const QString& role = KeloRoles::Value())
    {
        const CMSetDataRequest request(path(encoded), role, value);
        CMRoot().request(request);
        return request.reply();
    }
    QString errorOf(const CMReply<QVariant>& reply)
    {
        EXPECT_TRUE(reply.waitForFinished(10000));
        return reply.error().name();
    }

    CMWorkerThread thread;
    DemoWorker* worker = nullptr;
    CMError lastError;
};
} // namespace

TEST_F(TreeTest, everyRequestIsAnsweredAlsoWhereNobodyStands)
{
    EXPECT_EQ(rows("/demo/list").rowsCount(), 5);
    for (const char* nowhere : {"/nobody", "/demos", "/demo/list/below", "/demo/unknown", ""}) {
        rows(nowhere);
        EXPECT_EQ(lastError.name(), CMError::NotFoundName()) << nowhere;
    }
    rows("/demo/list", 5, 2);
    EXPECT_EQ(lastError.name(), CMError::BadRequestName());
    rows("/demo/value");
    EXPECT_EQ(lastError.name(), QStringLiteral("Refused"));
    EXPECT_EQ(errorOf(set("/demo/nothing", 1)), QStringLiteral("NotAvailable"));
    EXPECT_EQ(errorOf(set("/demo/hold", 1)), QStringLiteral("Refused"));
    EXPECT_EQ(CMRoot().pendingRequests(), 0) << "each was answered on this thread";
}

TEST_F(TreeTest, aListAnswersSlicesAndCopiesParametersOntoRowsThatReferToNodes)
{
    const KeloRowsRoles page = rows("/demo/list?id=7", 2, 4);
    EXPECT_EQ(page.rowsCount(), 5);
    const QVariantList list = page.rows().toList();
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list.at(0).toList().at(1).toString(), QStringLiteral("2"));
    EXPECT_EQ(list.at(1).toList().at(0).toString(), QStringLiteral("/demo/value?id=7"));
    EXPECT_TRUE(list.at(2).toList().at(2).toBool()) << "a row that refers to nothing is disabled";
    EXPECT_EQ(page.roles().path(), path("/demo/list?id=7"));
    EXPECT_TRUE(rows("/demo/list", 5, 9).rows().toList().isEmpty());
}

TEST_F(TreeTest, anActionIsBusyUntilItIsAnswered)
{
    const CMReply<QVariant> reply = set("/demo/action", 1);
    ASSERT_TRUE(reply.waitForFinished(10000));
    EXPECT_EQ(reply.value(), QVariant(42));
    // The busy count is taken back on the worker's thread, after what is queued there.
    worker->ping().waitForFinished(10000);
    EXPECT_FALSE(CMRoot().dataRoles(path("/demo/action")).contains(KeloRoles::BusyText()));
}

TEST_F(TreeTest, theQueryNodeForwardsAndTheFormHandsItsParametersOn)
{
    EXPECT_EQ(rows("/demo/search?query=x").rowsCount(), 5);
    rows("/demo/search");
    EXPECT_EQ(lastError.name(), CMError::BadRequestName());
    EXPECT_EQ(rows("/demo/form?id=5").roles().value(KeloRoles::AcceptPath()).toString(),
              QStringLiteral("/demo/action?id=5"));
}

TEST_F(TreeTest, valuesAreStoredWatchedAndKeptSecret)
{
    QEventLoop loop;
    EXPECT_EQ(errorOf(set("/demo/value", QStringLiteral("one"))), QString());
    EXPECT_EQ(CMRoot().value(path("/demo/value")).string_(), QStringLiteral("one"));
    worker->value->setReadOnly(true);
    EXPECT_EQ(errorOf(set("/demo/value", QStringLiteral("two"))), QStringLiteral("ReadOnly"));
    EXPECT_EQ(errorOf(set("/demo/secret", QVariantHash())), CMError::BadRequestName());

    set("/demo/secret", QStringLiteral("hidden")).waitForFinished(10000);
    EXPECT_EQ(CMRoot().value(path("/demo/secret")).string_(), QStringLiteral("hidden"));
    EXPECT_FALSE(CMRoot().dataRoles(path("/demo/secret")).contains(KeloRoles::Value()));
    const QVariant context = CMRoot().dataRoles(path("/demo/value")).context();
    EXPECT_EQ(context.toHash().value(KeloRoles::Path()).toString(), QStringLiteral("/demo/list"));
}

TEST_F(TreeTest, aValueKeepsItsType)
{
    const auto typed = [](const char* type, const QVariant& value) {
        return QVariantHash{{KeloValue::Type(), type}, {type, value}};
    };
    const QVariant yes(true);
    const QVariant texts(QStringList{"a", "b"});
    const QVariant nothing; // what is refused
    // What is sent to a value, and what the node holds then.
    using Sent = QList<std::pair<QVariant, QVariant>>;
    const Sent numbers{{"4", 4},
                       {4.0, 4},
                       {typed("i64_", "-4"), -4},
                       {"", nothing},
                       {4.5, nothing},
                       {yes, nothing},
                       {nothing, nothing},
                       {typed("i64_", "x"), nothing},
                       {typed("mediaData", QVariantHash()), nothing},
                       {"9223372036854775808", nothing}};
    const Sent words{{1984.0, "1984"},
                     {4.5, nothing},
                     {typed("string_", 5), "5"},
                     {typed("string_", texts), nothing}};
    const Sent choices{{"true", yes}, {1, nothing}, {"1", nothing}};
    const Sent lists{
        {QVariantList{"c"}, QStringList{"c"}}, {"c", nothing}, {QVariantList{1}, nothing}};
    const auto held = [this] { return worker->value->value(); };
    for (const auto& [first, wants, values] :
         Table<QVariant, QString, Sent>{{7, "%1 wants a whole number", numbers},
                                        {"t", "%1 wants a text", words},
                                        {yes, "%1 wants true or false", choices},
                                        {texts, "What was sent to %1 is no value", lists}}) {
        const KeloValue before = KeloValue::fromVariant(first);
        for (const auto& [sent, expected] : values) {
            SCOPED_TRACE(before.type().toStdString() + " " + sent.toString().toStdString());
            worker->value->setValue(before);
            const CMReply<QVariant> reply = set("/demo/value", sent);
            EXPECT_EQ(errorOf(reply), expected.isValid() ? QString() : CMError::BadRequestName());
            if (!expected.isValid()) {
                EXPECT_EQ(reply.error().message(), wants.arg("/demo/value"));
            }
            EXPECT_EQ(held(), expected.isValid() ? KeloValue::fromVariant(expected) : before);
        }
    }
    worker->value->setValue(KeloValue());
    EXPECT_EQ(errorOf(set("/demo/value", typed("i64_", "x"))), CMError::BadRequestName());
    EXPECT_EQ(errorOf(set("/demo/value", 5)), QString());
    EXPECT_EQ(held().i64_(), 5) << "a node without a value takes any";
}

TEST_F(TreeTest, aRequestIsAnsweredAtItsDeadlineAndALateAnswerIsDropped)
{
    CMDeadlines deadlines;
    deadlines.set = std::chrono::milliseconds(20);
    CMRoot().setDeadlines(deadlines);
    auto entered = worker->entered.get_future();
    const CMReply<QVariant> reply = set("/demo/hold", 1, KeloRoles::PrePlay());
    entered.wait();
    EXPECT_EQ(errorOf(reply), CMError::DeadlineName());
    worker->held.reply().setValue(1);
    EXPECT_FALSE(reply.value().isValid());
}

TEST_F(TreeTest, aRequestThatNobodyHoldsAnyMoreIsAnsweredAtOnceAndOneThatIsHeldIsNot)
{
    EXPECT_EQ(errorOf(set("/demo/drop", 1)), CMError::NoAnswerName());
    EXPECT_EQ(errorOf(CMRoot().invoke(path("/demo/drop"), 1)), CMError::NoAnswerName());

    auto entered = worker->entered.get_future();
    const CMReply<QVariant> reply = set("/demo/hold", 1, KeloRoles::PrePlay());
    entered.wait();
    // A handle of the reply holds as the request does, also when it is forwarded in another one.
    CMRequest forwarded =
        CMSetDataRequest(path("/demo/action"), KeloRoles::Value(), 1, worker->held.reply());
    worker->held = CMSetDataRequest();
    EXPECT_EQ(errorOf(set("/demo/drop", 1)), CMError::NoAnswerName());
    EXPECT_FALSE(reply.isFinished()) << "the root's thread has had its turn";
    forwarded = forwarded.servingSide();
    EXPECT_FALSE(reply.isFinished());
    forwarded = CMRequest();
    EXPECT_EQ(errorOf(reply), CMError::NoAnswerName());
    EXPECT_EQ(reply.error().message(), QStringLiteral("The module gave no answer"));
}

TEST_F(TreeTest, aStoppedWorkerOwesNothing)
{
    auto entered = worker->entered.get_future();
    const CMReply<QVariant> reply = set("/demo/hold", 1, KeloRoles::PrePlay());
    entered.wait();
    thread.stop();
    EXPECT_EQ(errorOf(reply), QStringLiteral("Stopped"));
    EXPECT_EQ(CMRoot().pendingRequests(), 0);
    rows("/demo/list");
    EXPECT_EQ(lastError.name(), CMError::NotFoundName());
}

TEST_F(TreeTest, noticesReachTheOpenPathsTheyAreMeantFor)
{
    std::vector<std::pair<QString, QString>> seen;
    const auto listener = [&seen](const CMRowsNotice& notice) {
        seen.emplace_back(notice.path.toEncoded(), notice.change.toStringList().join(','));
    };
    const quint64 one = CMRoot().openRows(path("/demo/list?a=1&b=2"), listener);
    const quint64 two = CMRoot().openRows(path("/demo/list/deep"), listener);
    CMSubscribe* subscription = worker->nodes()->subscribe();
    const int version = subscription->rowsVersion(path("/demo/list"));
    subscription->rowsChanged(path("/demo/list?a=1"), QStringList{QStringLiteral("-4")}, 3);
    subscription->rowsChanged(path("/demo/list?a=2"), QStringList{QStringLiteral("-5")}, 3);
    subscription->changedStartingWith(path("/demo/list"), CMSubscribe::RowsChangeClose());
    subscription->changedStartingWith(path("/demo/lis"), CMSubscribe::RowsChangeClose());
    CMRoot().closeRows(one);
    worker->list->rowsClear();
    const std::vector<std::pair<QString, QString>> expected{{"/demo/list?a=1&b=2", "-4"},
                                                            {"/demo/list?a=1&b=2", "close"},
                                                            {"/demo/list/deep", "close"}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(subscription->rowsVersion(path("/demo/list")), version + 4);
    CMRoot().closeRows(two);
}

TEST_F(TreeTest, pathsThatOpenAndCloseOnSeveralThreadsAreToldInTheirOrder)
{
    CMSubscribe* subscription = worker->nodes()->subscribe();
    std::vector<int> told;
    std::mutex mutex;
    const auto note = [&](int step) {
        return [&told, &mutex, step](const CMPath&) {
            std::lock_guard<std::mutex> lock(mutex);
            told.push_back(step);
        };
    };
    QObject::connect(subscription, &CMSubscribe::rowsPathAdded, note(1));
    QObject::connect(subscription, &CMSubscribe::rowsPathRemoved, note(-1));
    const auto openAndClose = [] {
        for (int i = 0; i < 30000; ++i)
            CMRoot().closeRows(CMRoot().openRows(path("/demo/list"), [](const CMRowsNotice&) {}));
    };
    std::thread other(openAndClose);
    openAndClose();
    other.join();
    int open = 0;
    EXPECT_TRUE(std::all_of(told.begin(), told.end(), [&open](int step) {
        open += step;
        return open == 0 || open == 1;
    })) << open;
}

namespace {
class Listener : public QObject
{
    Q_OBJECT
public:
    QStringList changes;
    QEventLoop loop;
    int wanted = 0;

public Q_SLOTS:
    void on_changed(const KeloValue& newValue, const KeloValue& oldValue)
    {
        changes << oldValue.string_() + QLatin1Char('>') + newValue.string_();
        if (changes.size() == wanted)
            loop.quit();
    }
    void on_other(const KeloValue& newValue) { others << newValue.string_(); }

public:
    QStringList others;
};
} // namespace

TEST_F(TreeTest, aValueItemLoadsBeforeOrAfterTheValueIsThereAndTellsEveryChangeInOrder)
{
    Listener listener;
    CMValueItem item(&listener, path("/demo/value"), &listener,
                     SLOT(on_changed(KeloValue, KeloValue)));
    EXPECT_FALSE(item.waitForLoaded(0));
    std::thread writer([this] {
        for (const char* text : {"a", "b", "c"})
            worker->value->setValue(KeloValue::fromVariant(QString::fromUtf8(text)));
    });
    EXPECT_TRUE(item.waitForLoaded(-1));
    EXPECT_TRUE(listener.changes.isEmpty()) << "the slot runs in a turn of the event loop";
    listener.wanted = 3;
    listener.loop.exec();
    writer.join();
    EXPECT_EQ(listener.changes, QStringList({">a", "a>b", "b>c"}));

    CMValueItem late(&listener, path("/demo/value"), &listener,
                     SLOT(on_changed(KeloValue, KeloValue)));
    EXPECT_TRUE(late.isLoaded());
    listener.wanted = 4;
    listener.loop.exec();
    EXPECT_EQ(listener.changes.last(), QStringLiteral(">c"));
}

TEST_F(TreeTest, everySlotOfAReceiverIsToldUntilItDiesAndADirectOneWhereItIsPublished)
{
    auto receiver = std::make_unique<Listener>();
    const auto connect = [&](const char* slot) {
        worker->connectValueChange(path("/demo/value"), receiver.get(), slot, Qt::DirectConnection);
    };
    connect(SLOT(on_changed(KeloValue, KeloValue)));
    connect(SLOT(on_other(KeloValue)));
    connect(SLOT(on_other(KeloValue)));
    CMValueItem direct(nullptr, path("/demo/value"), receiver.get(), SLOT(on_other(KeloValue)),
                       Qt::DirectConnection);
    const auto publish = [this](const char* text) {
        worker->value->setValue(KeloValue::fromVariant(QString::fromUtf8(text)));
    };
    publish("a");
    EXPECT_EQ(receiver->changes, QStringList(">a"));
    EXPECT_EQ(receiver->others, QStringList({"a", "a"})) << "one connection and the item";
    receiver.reset();
    publish("b");
    EXPECT_EQ(direct.value().string_(), QStringLiteral("b"));
}

#include "TreeTest.moc"
