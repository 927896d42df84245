#include "TidalOrderingNode.h"

#include "TidalWorker.h"
#include <kelo/KeloLog.h>

namespace {
KeloValue textValue(const QString& text)
{
    KeloValue value;
    value.setString(text);
    return value;
}

KeloRoles headingRow(const TrString& title)
{
    KeloRoles roles;
    roles.setType(KeloRolesType::Header_);
    roles.setTitle(title);
    return roles;
}

CMPath settingPath(const CMPath& menu, const QString& component)
{
    return menu + QStringLiteral("/") + component;
}
} // namespace

TidalFilterEnumNode::TidalFilterEnumNode(TidalWorker* worker, const CMPath& path)
    : CMValueNode(path), m_worker(worker)
{
}

TidalFilterEnumNode::~TidalFilterEnumNode() = default;

TidalFilterEnumNode* TidalFilterEnumNode::create(TidalWorker* worker, const CMPath& path,
                                                 const TrString& title,
                                                 const QList<Choice>& choices, const QString& value)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    const CMPath enumPath = path + QStringLiteral("/Enums");
    auto* node = new TidalFilterEnumNode(worker, path);
    node->setReadOnly(false);
    node->setTitle(title);
    node->setValue(textValue(value));
    KeloEdit edit;
    edit.setType(KeloEdit::Enum_);
    edit.setEnumPath(enumPath);
    node->setEdit(edit);
    node->setNodes(worker->nodes());

    CMListRowsNode* list = CMListRowsNode::create(worker->nodes(), enumPath);
    for (const Choice& choice : choices) {
        KeloRoles row;
        row.setType(KeloRolesType::Choice_);
        row.setTitle(choice.title);
        row.setValue(textValue(choice.value).toVariant());
        list->rowsAppend(row);
    }
    return node;
}

KeloTidalOrderingType::Enum TidalFilterEnumNode::getOrderingType(const CMPath& path)
{
    const QStringList segments = path.splitBase();
    const QString component = segments.isEmpty() ? QString() : segments.last();
    if (component == KeloTidalOrderingType::Order())
        return KeloTidalOrderingType::Order_;
    if (component == KeloTidalOrderingType::OrderDirection())
        return KeloTidalOrderingType::OrderDirection_;
    if (component == KeloTidalOrderingType::Filter())
        return KeloTidalOrderingType::Filter_;
    return KeloTidalOrderingType::Enum(0);
}

bool TidalFilterEnumNode::setDataRequest(const CMSetDataRequest& request)
{
    return handleBrowseSetting(request);
}

bool TidalFilterEnumNode::handleBrowseSetting(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "path: " << request.path();
    const KeloTidalOrderingType::Enum type = getOrderingType(request.path());
    if (type < KeloTidalOrderingType::Order_ || type > KeloTidalOrderingType::Filter_)
        return false;
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const KeloValue sent = KeloValue::fromVariant(request.value());
    const QString chosen = sent.string_();
    if (chosen.isEmpty() || sent.value(KeloValue::String()).userType() != QMetaType::QString) {
        request.reply().setError(
            CMError(CMError::BadRequestName(), KELO_TR("What was sent is no text to choose")));
        return true;
    }
    KeloTidalBrowseSetting& setting =
        m_isTracks ? m_worker->playlistTracksSetting() : m_worker->myMusicSetting();
    on_handleBrowseSetting(type, chosen, &setting, request);
    return true;
}

void TidalFilterEnumNode::on_handleBrowseSetting(KeloTidalOrderingType::Enum type, QString value,
                                                 KeloTidalBrowseSetting* setting,
                                                 const CMSetDataRequest& request)
{
    // A filter is in force before it is shown, the others are shown first.
    switch (type) {
    case KeloTidalOrderingType::Filter_:
        setting->setFilter(KeloTidalFilter::fromString(value));
        setValue(textValue(value));
        break;
    case KeloTidalOrderingType::Order_:
        setValue(textValue(value));
        setting->setOrder(KeloTidalOrder::fromString(value));
        break;
    case KeloTidalOrderingType::OrderDirection_:
        setValue(textValue(value));
        setting->setOrderDirection(KeloTidalOrderDirection::fromString(value));
        break;
    default:
        Q_ASSERT_X(false, Q_FUNC_INFO, "false");
        break;
    }
    request.reply().setValue(QVariant());
    subscribe()->changedStartingWith(path(), CMSubscribe::RowsChangeClose(), -1);
}

TidalOrderingContextNode* TidalOrderingContextNode::create(TidalWorker* worker, const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    auto* node = new TidalOrderingContextNode(worker, path);
    node->setNodes(worker->nodes());
    return node;
}

TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker* worker, const CMPath& path)
    : CMListRowsNode(path)
{
    setContainerType(KeloRolesContainerType::List_);
    rowsAppend(headingRow(KELO_TR("My Music browsing")));
    const auto addSetting = [&](const QString& component, const TrString& title,
                                const QList<TidalFilterEnumNode::Choice>& choices,
                                const QString& value) {
        rowsAppend(
            TidalFilterEnumNode::create(worker, settingPath(path, component), title, choices, value)
                ->path());
    };
    addSetting(KeloTidalOrderingType::Order(), KELO_TR("Order"),
               {{KELO_TR("Date"), KeloTidalOrder::Date()},
                {KELO_TR("Name"), KeloTidalOrder::Name()},
                {KELO_TR("Artist - Not for my playlists and artists"), KeloTidalOrder::Artist()},
                {KELO_TR("Album - Only my tracks"), KeloTidalOrder::Album()},
                {KELO_TR("Length - Only my tracks"), KeloTidalOrder::Length()},
                {KELO_TR("Release Date - Only my albums"), KeloTidalOrder::ReleaseDate()}},
               KeloTidalOrder::Name());
    addSetting(KeloTidalOrderingType::OrderDirection(), KELO_TR("Order direction"),
               {{KELO_TR("Descending"), KeloTidalOrderDirection::Desc()},
                {KELO_TR("Ascending"), KeloTidalOrderDirection::Asc()}},
               KeloTidalOrderDirection::Asc());
    addSetting(KeloTidalOrderingType::Filter(), KELO_TR("Filter"),
               {{KELO_TR("All"), KeloTidalFilter::All()},
                {KELO_TR("Private"), KeloTidalFilter::Private()},
                {KELO_TR("Public"), KeloTidalFilter::Public()}},
               KeloTidalFilter::All());
}

TidalOrderingContextNode::~TidalOrderingContextNode() = default;

TidalTrackOrderingContextNode* TidalTrackOrderingContextNode::create(TidalWorker* worker,
                                                                     const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    auto* node = new TidalTrackOrderingContextNode(worker, path);
    node->setNodes(worker->nodes());
    return node;
}

TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker* worker,
                                                             const CMPath& path)
    : CMListRowsNode(path)
{
    setContainerType(KeloRolesContainerType::List_);
    rowsAppend(headingRow(KELO_TR("Playlist tracks ordering")));
    const auto addSetting = [&](const QString& component, const TrString& title,
                                const QList<TidalFilterEnumNode::Choice>& choices,
                                const QString& value) {
        TidalFilterEnumNode* node = TidalFilterEnumNode::create(
            worker, settingPath(path, component), title, choices, value);
        node->setIsTracks(true);
        rowsAppend(node->path());
    };
    addSetting(KeloTidalOrderingType::Order(), KELO_TR("Order"),
               {{KELO_TR("Date"), KeloTidalOrder::Date()},
                {KELO_TR("Name"), KeloTidalOrder::Name()},
                {KELO_TR("Artist"), KeloTidalOrder::Artist()},
                {KELO_TR("Album"), KeloTidalOrder::Album()},
                {KELO_TR("Length"), KeloTidalOrder::Length()},
                {KELO_TR("Index"), KeloTidalOrder::Index()}},
               KeloTidalOrder::Index());
    addSetting(KeloTidalOrderingType::OrderDirection(), KELO_TR("Order direction"),
               {{KELO_TR("Descending"), KeloTidalOrderDirection::Desc()},
                {KELO_TR("Ascending"), KeloTidalOrderDirection::Asc()}},
               KeloTidalOrderDirection::Asc());
}

TidalTrackOrderingContextNode::~TidalTrackOrderingContextNode() = default;
