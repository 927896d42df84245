#include "TidalOrderingNode.h"

#include <kelo/KeloLog.h>

namespace {
KeloValue textValue(const QString& text)
{
    KeloValue value;
    value.setString(text);
    return value;
}

/// A text that can be chosen, and how it is shown.
struct Choice
{
    TrString title;
    QString value;
};

struct Setting
{
    QString component; ///< by which its path ends
    TrString title;
    QList<Choice> choices;
    QString value;
};

CMListRowsNode* createChoices(CMNodes* nodes, const CMPath& path, const QList<Choice>& choices)
{
    CMListRowsNode* list = CMListRowsNode::create(nodes, path);
    for (const Choice& choice : choices) {
        KeloRoles row = tidalRow(KeloRolesType::Choice_, choice.title);
        row.setValue(textValue(choice.value).toVariant());
        list->rowsAppend(row);
    }
    return list;
}

void fillMenu(CMListRowsNode* menu, TidalWorker* worker, bool isTracks, const TrString& heading,
              const QList<Setting>& settings)
{
    menu->setContainerType(KeloRolesContainerType::List_);
    menu->rowsAppend(tidalRow(KeloRolesType::Header_, heading));
    for (const Setting& setting : settings) {
        const CMPath path = menu->path() + (QLatin1Char('/') + setting.component);
        TidalFilterEnumNode* node = TidalFilterEnumNode::create(worker, path);
        node->setIsTracks(isTracks);
        node->setReadOnly(false);
        node->setTitle(setting.title);
        node->setValue(textValue(setting.value));
        KeloEdit edit;
        edit.setType(KeloEdit::Enum_);
        edit.setEnumPath(
            createChoices(worker->nodes(), path + QStringLiteral("/Enums"), setting.choices)
                ->path());
        node->setEdit(edit);
        menu->rowsAppend(path);
    }
}
} // namespace

KeloTidalOrderingType::Enum TidalFilterEnumNode::getOrderingType(const CMPath& path)
{
    const QString component =
        path.base().section(QLatin1Char('/'), -1, -1, QString::SectionSkipEmpty);
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
    Q_ASSERT_X(type >= KeloTidalOrderingType::Order_ && type <= KeloTidalOrderingType::Filter_,
               Q_FUNC_INFO, "false");
    // A filter is in force before it is shown, the others are shown first.
    if (type == KeloTidalOrderingType::Filter_)
        setting->setFilter(KeloTidalFilter::fromString(value));
    setValue(textValue(value));
    if (type == KeloTidalOrderingType::Order_)
        setting->setOrder(KeloTidalOrder::fromString(value));
    else if (type == KeloTidalOrderingType::OrderDirection_)
        setting->setOrderDirection(KeloTidalOrderDirection::fromString(value));
    request.reply().setValue(QVariant());
    subscribe()->changedStartingWith(path(), CMSubscribe::RowsChangeClose(), -1);
}

TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker* worker, const CMPath& path)
    : TidalNode(path)
{
    fillMenu(this, worker, false, KELO_TR("My Music browsing"),
             {{KeloTidalOrderingType::Order(),
               KELO_TR("Order"),
               {{KELO_TR("Date"), KeloTidalOrder::Date()},
                {KELO_TR("Name"), KeloTidalOrder::Name()},
                {KELO_TR("Artist - Not for my playlists and artists"), KeloTidalOrder::Artist()},
                {KELO_TR("Album - Only my tracks"), KeloTidalOrder::Album()},
                {KELO_TR("Length - Only my tracks"), KeloTidalOrder::Length()},
                {KELO_TR("Release Date - Only my albums"), KeloTidalOrder::ReleaseDate()}},
               KeloTidalOrder::Name()},
              {KeloTidalOrderingType::OrderDirection(),
               KELO_TR("Order direction"),
               {{KELO_TR("Descending"), KeloTidalOrderDirection::Desc()},
                {KELO_TR("Ascending"), KeloTidalOrderDirection::Asc()}},
               KeloTidalOrderDirection::Asc()},
              {KeloTidalOrderingType::Filter(),
               KELO_TR("Filter"),
               {{KELO_TR("All"), KeloTidalFilter::All()},
                {KELO_TR("Private"), KeloTidalFilter::Private()},
                {KELO_TR("Public"), KeloTidalFilter::Public()}},
               KeloTidalFilter::All()}});
}

TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker* worker,
                                                             const CMPath& path)
    : TidalNode(path)
{
    fillMenu(this, worker, true, KELO_TR("Playlist tracks ordering"),
             {{KeloTidalOrderingType::Order(),
               KELO_TR("Order"),
               {{KELO_TR("Date"), KeloTidalOrder::Date()},
                {KELO_TR("Name"), KeloTidalOrder::Name()},
                {KELO_TR("Artist"), KeloTidalOrder::Artist()},
                {KELO_TR("Album"), KeloTidalOrder::Album()},
                {KELO_TR("Length"), KeloTidalOrder::Length()},
                {KELO_TR("Index"), KeloTidalOrder::Index()}},
               KeloTidalOrder::Index()},
              {KeloTidalOrderingType::OrderDirection(),
               KELO_TR("Order direction"),
               {{KELO_TR("Descending"), KeloTidalOrderDirection::Desc()},
                {KELO_TR("Ascending"), KeloTidalOrderDirection::Asc()}},
               KeloTidalOrderDirection::Asc()}});
}
