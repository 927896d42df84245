#include "TreeApi.h"

#include "ItemRoles.h"
#include "JsonRows.h"
#include "RowSearch.h"
#include "texts/TextCatalogue.h"

#include <algorithm>
#include <kelo/CMRoot.h>
#include <kelo/KeloOAuth2.h>

namespace {

constexpr int pageSize = RowSearch::pageSize;
/// A wish for more rows ends here; the count says that there are more.
constexpr int mostRows = 10000;
/// A row that is not found by then is told to be nowhere.
constexpr int mostPages = 250;
/// Bytes of its text; few rows have more.
constexpr size_t roomOfRow = 1280;

const QStringList& dataRoles()
{
    static const QStringList roles =
        itemRoles() + QStringList{KeloRoles::Value(),      KeloRoles::Edit(),
                                  KeloRoles::ReadOnly(),   KeloRoles::SearchPath(),
                                  KeloRoles::AcceptPath(), KeloRoles::Query(),
                                  KeloRoles::QueryPath(),  KeloRoles::BusyText()};
    return roles;
}

bool isHeader(const QVariant& type)
{
    return type.userType() == QMetaType::Int ? type.toInt() == KeloRolesType::Header_
                                             : type.toString() == KeloRolesType::Header();
}

/// Whether rows with these roles can be played from.
bool hasItemRoles(const QStringList& roles)
{
    return roles.size() >= itemRoles().size() &&
           std::equal(itemRoles().begin(), itemRoles().end(), roles.begin());
}

/// The roles of a list of values as an object, those without a value left out; values[typeAt] is
/// the type. `keys` are the roles, encoded.
void writeRoles(JsonText& json, const QStringList& roles, const std::vector<std::string>& keys,
                const QVariantList& values, int typeAt)
{
    json.beginObject();
    const int count = qMin(roles.size(), values.size());
    const bool isHeading = isHeader(values.value(typeAt));
    for (int i = 0; i < count; ++i) {
        if (!values.at(i).isValid())
            continue;
        json.key(keys[size_t(i)]);
        if (isHeading && roles.at(i) == KeloRoles::Title())
            json.heading(values.at(i));
        else
            json.role(roles.at(i), values.at(i));
    }
    json.endObject();
}

} // namespace

void TreeApi::addRoutes(RouteTable& routes)
{
    using Call = void (TreeApi::*)(const HttpCall&, const HttpAnswer&);
    const auto add = [&](const char* method, const char* path, Call function) {
        routes.add(method, path, [this, function](const HttpCall& call, const HttpAnswer& answer) {
            (this->*function)(call, answer);
        });
    };
    add("GET", "/api/v1/rows", &TreeApi::rows);
    add("GET", "/api/v1/row", &TreeApi::row);
    add("GET", "/api/v1/data", &TreeApi::data);
    add("POST", "/api/v1/set", &TreeApi::set);
}

template <class Request, class Reply>
void TreeApi::ask(const Request& request, const HttpAnswer& answer, Reply reply)
{
    CMRoot().request(request);
    m_waiter.whenFinished(request.reply(), [request, answer, reply = std::move(reply)] {
        const CMError error = request.reply().error();
        answer(error.isSet() ? HttpReply::error(error) : reply(request.reply().value()));
    });
}

/// A range of any width, fetched in pages. Each is written as it comes, so that a long range takes
/// the memory of its text alone.
struct TreeApi::Range
{
    /// Writes the page's rows, and returns how many they are.
    int take(const KeloRowsRoles& page);
    HttpReply reply();

    HttpCall call;
    HttpAnswer answer;
    CMPath path;
    int from;
    int to;
    QStringList roles;         ///< that are answered
    QStringList asked;         ///< of the tree: with what it takes to write them
    qint64 next = from;        ///< row to ask for
    int count = 0;             ///< of rows so far
    std::string text = {};     ///< of them
    KeloRowsRoles last = {};   ///< page, without its rows
    JsonText json{call.texts}; ///< writes them

private:
    void writeList(const QVariantList& rows);
};

int TreeApi::Range::take(const KeloRowsRoles& page)
{
    if (count == 0) {
        json.beginArray();
        // Room that is not used costs nothing.
        const qint64 rows = qMin<qint64>(page.rowsCount(), to + 1LL) - from;
        text.reserve(size_t(qBound<qint64>(0, rows, mostRows)) * roomOfRow);
    }
    if (page.block())
        JsonRows(*page.block(), roles, call.texts).write(json);
    else
        writeList(page.rows().toList());
    json.moveTo(text);
    count += page.size();
    last = page;
    last.setRows({});
    return page.size();
}

void TreeApi::Range::writeList(const QVariantList& rows)
{
    const int typeAt = asked.indexOf(KeloRoles::Type());
    const std::vector<std::string> keys = JsonText::encoded(roles);
    for (const QVariant& row : rows)
        writeRoles(json, roles, keys, row.toList(), typeAt);
}

HttpReply TreeApi::Range::reply()
{
    json.endArray();
    json.moveTo(text);
    const KeloRoles own = last.roles().isEmpty() ? CMRoot().servingRoles(path) : last.roles();
    JsonText head(call.texts);
    head.beginObject();
    head.field("path", path.toEncoded());
    head.field("from", from);
    head.field("rowsCount", last.rowsCount());
    head.field("rowsVersion", last.rowsVersion());
    head.roles("roles", own.toHash());
    head.key(QStringLiteral("rows"));
    text.insert(0, head.text() + ':');
    text += '}';
    return HttpReply::json(std::move(text));
}

void TreeApi::fetch(const std::shared_ptr<Range>& range)
{
    // A range that is no range is the node's to refuse, as it stands.
    const bool isRange = range->from >= 0 && range->from <= range->to;
    const int last = isRange ? int(qMin(qint64(range->to), range->next + pageSize - 1)) : range->to;
    const bool isPage = isRange && range->to - range->from < pageSize && hasItemRoles(range->asked);
    const auto watch = isPage ? m_kept.begin(range->path) : nullptr;
    const CMGetRowsRequest request(range->path, int(range->next), last, range->asked);
    CMRoot().request(request);
    m_waiter.whenFinished(request.reply(), [this, request, range, isRange, last, watch] {
        if (watch)
            m_kept.take(watch, range->from, request.reply());
        const CMError error = request.reply().error();
        if (error.isSet())
            return range->answer(HttpReply::error(error));
        const qint64 asked = last - range->next + 1;
        range->next += asked;
        const int size = range->take(request.reply().value());
        if (!isRange || size < asked || range->next > range->to ||
            range->next >= range->last.rowsCount() || range->count >= mostRows)
            range->answer(range->reply());
        else
            fetch(range);
    });
}

void TreeApi::rows(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto path = call.path(&fault);
    const auto from = call.integer("from", 0, &fault);
    const int lastByDefault = int(qMin(qint64(from.value_or(0)) + pageSize - 1, qint64(INT_MAX)));
    const auto to = call.integer("to", lastByDefault, &fault);
    const auto roles = call.roles(itemRoles(), &fault);
    if (!path || !from || !to || !roles)
        return answer(HttpReply::badRequest(fault));

    // Whether a row is a heading must be known to translate it.
    QStringList asked = *roles;
    if (!call.texts->isEmpty() && !asked.contains(KeloRoles::Type()))
        asked.append(KeloRoles::Type());
    fetch(std::shared_ptr<Range>(new Range{call, answer, *path, *from, *to, *roles, asked}));
}

struct TreeApi::Lookup
{
    HttpCall call;
    HttpAnswer answer;
    CMPath path;
    RowSearch search{path, RowSearch::listsOf(path)};
    int pages = 0;
};

void TreeApi::row(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto path = call.path(&fault);
    if (!path)
        return answer(HttpReply::badRequest(fault));
    lookUp(std::make_shared<Lookup>(Lookup{call, answer, *path}));
}

void TreeApi::lookUp(const std::shared_ptr<Lookup>& lookup)
{
    RowSearch& search = lookup->search;
    if (!search.isDone() && ++lookup->pages <= mostPages) {
        const CMGetRowsRequest request(search.list(), search.from(), search.from() + pageSize - 1,
                                       itemRoles());
        CMRoot().request(request);
        m_waiter.whenFinished(request.reply(), [this, request, lookup] {
            const CMError error = request.reply().error();
            // Most of the lists do not exist, which is no fault.
            if (error.name() == CMError::DeadlineName() ||
                error.name() == HttpReply::stoppingName())
                return lookup->answer(HttpReply::error(error));
            lookup->search.take(RowSearch::Page(request.reply()));
            lookUp(lookup);
        });
        return;
    }
    if (!search.hasFound()) {
        return lookup->answer(HttpReply::problem(
            404,
            QStringLiteral("no list has a row with the path %1").arg(lookup->path.toEncoded())));
    }
    JsonText json(lookup->call.texts);
    json.beginObject();
    json.field("list", search.list().toEncoded());
    json.field("index", search.index());
    json.roles("row", search.row().toHash());
    json.endObject();
    lookup->answer(HttpReply::json(json.text()));
}

void TreeApi::data(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto path = call.path(&fault);
    const auto roles = call.roles(dataRoles(), &fault);
    if (!path || !roles)
        return answer(HttpReply::badRequest(fault));

    ask(CMGetDataRequest(*path, *roles), answer,
        [texts = call.texts, path = *path, roles = *roles](const QVariantList& values) {
            JsonText json(texts);
            json.beginObject();
            json.field("path", path.toEncoded());
            json.key(QStringLiteral("data"));
            writeRoles(json, roles, JsonText::encoded(roles), values,
                       roles.indexOf(KeloRoles::Type()));
            json.endObject();
            return HttpReply::json(json.text());
        });
}

void TreeApi::set(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto body = call.object(&fault);
    if (!body)
        return answer(HttpReply::badRequest(fault));
    if (!body->value("path").isString())
        return answer(HttpReply::badRequest(QStringLiteral("path: wanted a text")));
    const auto path = HttpCall::readPath(body->value("path").toString(), &fault);
    if (!path)
        return answer(HttpReply::badRequest(fault));
    const KeloJson roleText = body->value("role");
    if (!roleText.isNull() && (!roleText.isString() || roleText.toString().isEmpty()))
        return answer(HttpReply::badRequest(QStringLiteral("role: wanted a role name")));
    if (path->startsWith(KeloOAuth2AddServicePath()))
        return answer(
            HttpReply::problem(403, QStringLiteral("login services are added by modules alone")));

    const QString role = roleText.isNull() ? KeloRoles::Value() : roleText.toString();
    QVariant value = body->contains("value") ? body->value("value").toVariant() : QVariant(1);
    if (role == KeloRoles::Value() && !body->value("value").isObject()) {
        const KeloValue wrapped = KeloValue::fromVariant(value);
        if (!wrapped.isEmpty())
            value = wrapped.toVariant();
    }
    // What it changed is not told to every list that shows it.
    const auto changed = [this, answer](HttpReply reply) {
        m_kept.clear();
        answer(std::move(reply));
    };
    ask(CMSetDataRequest(*path, role, value), changed, [texts = call.texts](const QVariant& reply) {
        JsonText json(texts);
        json.beginObject();
        json.field("reply", reply);
        json.endObject();
        return HttpReply::json(json.text());
    });
}
