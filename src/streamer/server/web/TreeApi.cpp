#include "TreeApi.h"

#include "ItemRoles.h"
#include "JsonText.h"
#include "RowSearch.h"
#include "texts/TextCatalogue.h"

#include <kelo/CMRoot.h>
#include <kelo/KeloOAuth2.h>

namespace {

constexpr int pageSize = RowSearch::pageSize;
/// A wish for more rows ends here; the count says that there are more.
constexpr int mostRows = 10000;
/// A row that is not found by then is told to be nowhere.
constexpr int mostPages = 250;

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

/// The roles of a list of values as an object, those without a value left out; values[typeAt] is
/// the type.
void writeRoles(JsonText& json, const QStringList& roles, const QVariantList& values, int typeAt)
{
    json.beginObject();
    const int count = qMin(roles.size(), values.size());
    const bool isHeading = isHeader(values.value(typeAt));
    for (int i = 0; i < count; ++i) {
        if (!values.at(i).isValid())
            continue;
        json.key(roles.at(i));
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
    routes.add("GET", "/api/v1/rows", [this](const HttpCall& call) { return rows(call); });
    routes.add("GET", "/api/v1/row", [this](const HttpCall& call) { return row(call); });
    routes.add("GET", "/api/v1/data", [this](const HttpCall& call) { return data(call); });
    routes.add("POST", "/api/v1/set", [this](const HttpCall& call) { return set(call); });
}

TreeApi::Rows TreeApi::fetch(const CMPath& path, int from, int to, const QStringList& roles)
{
    Rows result;
    qint64 next = from;
    bool isDone = false;
    while (!isDone) {
        // A range that is no range is the node's to refuse, as it stands.
        const bool isRange = from >= 0 && from <= to;
        const int last = isRange ? int(qMin(qint64(to), next + pageSize - 1)) : to;
        const CMGetRowsRequest request(path, int(next), last, roles);
        CMRoot().request(request);
        result.error = m_waiter.wait(request.reply());
        if (result.error.isSet())
            return result;
        result.last = request.reply().value();
        const QVariantList page = result.last.rows().toList();
        result.rows += page;
        const qint64 asked = last - next + 1;
        next += asked;
        isDone = !isRange || page.size() < asked || next > to || next >= result.last.rowsCount() ||
                 result.rows.size() >= mostRows;
    }
    return result;
}

HttpReply TreeApi::rows(const HttpCall& call)
{
    QString fault;
    const auto path = call.path(&fault);
    const auto from = call.integer("from", 0, &fault);
    const int lastByDefault = int(qMin(qint64(from.value_or(0)) + pageSize - 1, qint64(INT_MAX)));
    const auto to = call.integer("to", lastByDefault, &fault);
    const auto roles = call.roles(itemRoles(), &fault);
    if (!path || !from || !to || !roles)
        return HttpReply::badRequest(fault);

    // Whether a row is a heading must be known to translate it.
    QStringList asked = *roles;
    if (!call.texts->isEmpty() && !asked.contains(KeloRoles::Type()))
        asked.append(KeloRoles::Type());
    const Rows rows = fetch(*path, *from, *to, asked);
    if (rows.error.isSet())
        return HttpReply::error(rows.error);
    const KeloRoles own =
        rows.last.roles().isEmpty() ? CMRoot().servingRoles(*path) : rows.last.roles();

    JsonText json(call.texts);
    json.beginObject();
    json.field("path", path->toEncoded());
    json.field("from", *from);
    json.field("rowsCount", rows.last.rowsCount());
    json.field("rowsVersion", rows.last.rowsVersion());
    json.roles("roles", own.toHash());
    json.key(QStringLiteral("rows"));
    json.beginArray();
    const int typeAt = asked.indexOf(KeloRoles::Type());
    for (const QVariant& row : rows.rows)
        writeRoles(json, *roles, row.toList(), typeAt);
    json.endArray();
    json.endObject();
    return HttpReply::json(json.text());
}

HttpReply TreeApi::row(const HttpCall& call)
{
    QString fault;
    const auto path = call.path(&fault);
    if (!path)
        return HttpReply::badRequest(fault);
    RowSearch search(*path, RowSearch::listsOf(*path));
    for (int pages = 0; pages < mostPages && !search.isDone(); ++pages) {
        const CMGetRowsRequest request(search.list(), search.from(), search.from() + pageSize - 1,
                                       itemRoles());
        CMRoot().request(request);
        const CMError error = m_waiter.wait(request.reply());
        // Most of the lists do not exist, which is no fault.
        if (error.name() == CMError::DeadlineName() || error.name() == HttpReply::stoppingName())
            return HttpReply::error(error);
        search.take(RowSearch::Page(request.reply()));
    }
    if (!search.hasFound())
        return HttpReply::problem(
            404, QStringLiteral("no list has a row with the path %1").arg(path->toEncoded()));

    JsonText json(call.texts);
    json.beginObject();
    json.field("list", search.list().toEncoded());
    json.field("index", search.index());
    json.roles("row", search.row().toHash());
    json.endObject();
    return HttpReply::json(json.text());
}

HttpReply TreeApi::data(const HttpCall& call)
{
    QString fault;
    const auto path = call.path(&fault);
    const auto roles = call.roles(dataRoles(), &fault);
    if (!path || !roles)
        return HttpReply::badRequest(fault);

    const CMGetDataRequest request(*path, *roles);
    CMRoot().request(request);
    if (const CMError error = m_waiter.wait(request.reply()); error.isSet())
        return HttpReply::error(error);

    JsonText json(call.texts);
    json.beginObject();
    json.field("path", path->toEncoded());
    json.key(QStringLiteral("data"));
    writeRoles(json, *roles, request.reply().value(), roles->indexOf(KeloRoles::Type()));
    json.endObject();
    return HttpReply::json(json.text());
}

HttpReply TreeApi::set(const HttpCall& call)
{
    QString fault;
    const auto body = call.object(&fault);
    if (!body)
        return HttpReply::badRequest(fault);
    if (!body->value("path").isString())
        return HttpReply::badRequest(QStringLiteral("path: wanted a text"));
    const auto path = HttpCall::readPath(body->value("path").toString(), &fault);
    if (!path)
        return HttpReply::badRequest(fault);
    const KeloJson roleText = body->value("role");
    if (!roleText.isNull() && (!roleText.isString() || roleText.toString().isEmpty()))
        return HttpReply::badRequest(QStringLiteral("role: wanted a role name"));
    if (path->startsWith(KeloOAuth2AddServicePath()))
        return HttpReply::problem(403, QStringLiteral("login services are added by modules alone"));

    const QString role = roleText.isNull() ? KeloRoles::Value() : roleText.toString();
    QVariant value = body->contains("value") ? body->value("value").toVariant() : QVariant(1);
    if (role == KeloRoles::Value() && !body->value("value").isObject()) {
        const KeloValue wrapped = KeloValue::fromVariant(value);
        if (!wrapped.isEmpty())
            value = wrapped.toVariant();
    }
    const CMSetDataRequest request(*path, role, value);
    CMRoot().request(request);
    if (const CMError error = m_waiter.wait(request.reply()); error.isSet())
        return HttpReply::error(error);

    JsonText json(call.texts);
    json.beginObject();
    json.field("reply", request.reply().value());
    json.endObject();
    return HttpReply::json(json.text());
}
