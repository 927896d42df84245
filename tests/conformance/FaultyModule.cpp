#include <atomic>
#include <csignal>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/KeloModule.h>
#include <kelo/KeloPost.h>
#include <kelo/PlayLogicInterface.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int rowCount = 30;

KeloRoles itemRow(const CMPath& list, int number, const CMPath& play)
{
    KeloMetaData metaData;
    metaData.setPrePlayPath(play);
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    KeloRoles row;
    row.setType(KeloRolesType::Audio_);
    row.setTitle(QString::number(number));
    CMPath path = list;
    path.appendSubpath(QString::number(number));
    row.setPath(path);
    row.setMediaData(mediaData);
    return row;
}

} // namespace

/// A list that is right in everything but one fault.
class FaultyList : public CMContainerNode
{
    Q_OBJECT
public:
    FaultyList(const CMPath& path, const QString& fault, const CMPath& play)
        : CMContainerNode(path), m_fault(fault), m_play(play)
    {
    }
    bool is(const char* fault) const { return m_fault == QLatin1String(fault); }
    void add() { ++m_count; }
    void tellAdded()
    {
        const int count = m_count;
        subscribe()->rowsChanged(path(), QStringList{QStringLiteral("+%1").arg(count - 1)}, count);
    }

    bool getRowsRequest(const CMGetRowsRequest& request) override
    {
        if (!isOwnPath(request.path()) && !is("answers everything"))
            return replyNotFound(request);
        if (is("never answers")) {
            m_kept = request;
            return true;
        }
        if (is("forgets"))
            return true;
        if (is("crashes"))
            std::raise(SIGSEGV);
        const bool isBad = request.from() < 0 || request.to() < request.from();
        if (isBad && !is("takes bad ranges")) {
            request.reply().setError(CMError(TrString(QStringLiteral("bad range"))));
            return true;
        }
        if (is("throws later"))
            throw std::runtime_error("no rows");
        request.reply().setValue(answer(request));
        if (is("answers twice"))
            request.reply().setError(CMError(TrString(QStringLiteral("again"))));
        return true;
    }

private:
    /// Gets a row with the first request, the fourth, the ninth, and so on.
    void fill()
    {
        const int next = m_nextFill;
        if (++m_asked != next * next)
            return;
        m_nextFill = next + 1;
        keloPost(this, [this] {
            add();
            tellAdded();
        });
    }
    KeloRowsRoles answer(const CMGetRowsRequest& request)
    {
        if (is("fills itself"))
            fill();
        const int count = m_count; // it may change meanwhile
        const bool isWhole = is("gives all rows");
        const int from = isWhole ? 0 : std::max(0, request.from());
        const int to = isWhole ? count - 1 : std::min(request.to(), count - 1);
        const int shift = is("gives other rows") ? ++m_asked : 0;
        QVariantList rows;
        for (int i = from; i <= to; ++i) {
            KeloRoles row = itemRow(path(), i + shift, m_play);
            if (is("has one path") || is("has one row only"))
                row.setPath(path() + QStringLiteral("/0"));
            if (is("has one row only"))
                row.setTitle(QStringLiteral("0"));
            if (is("has a number for a path"))
                row.insert(KeloRoles::Path(), i);
            if (is("has a strange type"))
                row.insert(KeloRoles::Type(), QStringLiteral("Sound"));
            if (is("has a broken path"))
                row.insert(KeloRoles::Path(), QStringLiteral("/faulty/list%zz"));
            if (is("has a row to nowhere")) {
                row.setType(KeloRolesType::Container_);
                row.setPath(CMPath(QStringLiteral("/faulty/nowhere")));
            }
            QVariantList values;
            for (const QString& role : request.roles())
                values.append(row.toHash().value(role));
            if (is("leaves a value out"))
                values.removeLast();
            rows.append(QVariant(values));
        }
        KeloRowsRoles answer;
        answer.setRows(rows);
        answer.setRowsCount(count - (is("counts wrongly") ? 15 : 0) +
                            (is("counts its end wrongly") ? 7 : 0));
        answer.setRoles(getDataRoles({}));
        return answer;
    }

    const QString m_fault;
    const CMPath m_play;
    std::atomic<int> m_count{is("counts its end wrongly") ? 2 * rowCount
                             : is("fills itself")         ? rowCount / 3
                                                          : rowCount};
    std::atomic<int> m_asked{0};
    std::atomic<int> m_nextFill{1};
    CMGetRowsRequest m_kept;
};

class FaultyWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    FaultyWorker(const QVariantHash& settings, const QString& fault)
        : CMNodesWorker(settings, QStringLiteral("faulty")), m_fault(fault)
    {
        const CMPath play = addPrefix(QStringLiteral("play"));
        auto* top = CMListRowsNode::create(nodes(), addPrefix(QString()));
        m_list = new FaultyList(addPrefix(QStringLiteral("list")), fault, play);
        m_list->setNodes(nodes());
        top->rowsAppend(m_list->path());
        if (is("answers everything"))
            (new FaultyList(addPrefix(QStringLiteral("no-such-place")), fault, play))
                ->setNodes(nodes());
        CMActivateNode::create(nodes(), addPrefix(QStringLiteral("add")), this,
                               SLOT(on_add(CMSetDataRequest)), Qt::QueuedConnection);
        CMActivateNode::create(nodes(), play, this, SLOT(on_play(CMSetDataRequest)),
                               Qt::QueuedConnection);
        if (is("leaves a process") && fork() == 0)
            pause();
        if (is("blocks every signal")) {
            sigset_t all;
            sigfillset(&all);
            sigprocmask(SIG_SETMASK, &all, nullptr);
            std::signal(SIGALRM, SIG_IGN);
            pause();
        }
        if (is("leaves a thread"))
            std::thread([] { pause(); }).detach();
    }
    ~FaultyWorker() override
    {
        if (is("never ends"))
            pause();
    }
    bool is(const char* fault) const { return m_fault == QLatin1String(fault); }

private Q_SLOTS:
    void on_add(const CMSetDataRequest& request)
    {
        m_list->add();
        const int times = is("tells nobody") ? 0 : is("tells twice") ? 2 : 1;
        for (int i = 0; i < times; ++i)
            m_list->tellAdded();
        request.reply().setValue(QVariant());
    }
    void on_play(const CMSetDataRequest& request)
    {
        KeloRoles item(KeloHash(request.value().toHash()));
        KeloMediaData mediaData = item.mediaData();
        KeloResource resource;
        resource.setUri(QStringLiteral("file:///tone.wav"));
        mediaData.setResources({resource});
        item.setMediaData(mediaData);
        if (!is("plays elsewhere"))
            item.setPath(request.path());
        if (!is("plays nothing"))
            PlayLogicInterface::instance(CMPath(QStringLiteral("/player")))->play(item, 0);
        request.reply().setValue(QVariant());
    }

private:
    const QString m_fault;
    FaultyList* m_list;
};

namespace {

/// Of the library, gone when the process ends.
struct Last
{
    ~Last()
    {
        if (crashes)
            std::raise(SIGSEGV);
    }
    bool crashes = false;
} last;

} // namespace

KELO_MODULE_INTERFACE

extern "C" Q_DECL_EXPORT void* worker_create(const char*, void* settings)
{
    QVariantHash given = *static_cast<const QVariantHash*>(settings);
    const QVariantHash own = given.value(QStringLiteral("settings")).toHash();
    const QString fault = own.value(QStringLiteral("fault")).toString();
    last.crashes = fault == QLatin1String("crashes at last");
    if (fault == QLatin1String("throws"))
        throw std::runtime_error("no antenna");
    if (fault == QLatin1String("gives no worker"))
        return nullptr;
    if (fault == QLatin1String("hangs at once"))
        pause();
    if (fault == QLatin1String("stands elsewhere"))
        given.insert(QStringLiteral("prefix"), QStringLiteral("/elsewhere"));
    return static_cast<CMAbstractWorker*>(new FaultyWorker(given, fault));
}

#include "FaultyModule.moc"
