#pragma once
#include "TidalEncodedPath.h"
#include <functional>
#include <memory>
#include <QMap>
#include <QVariant>

/// Context roles of the items of one page. The first item's come from the context node; those of
/// the others differ from them in the parameters of the path alone, so they are copies with another
/// path. Where that does not hold, the node is asked for each item. Lives on the worker's thread,
/// as long as a page is built.
class TidalContextRoles
{
public:
    using Source = std::function<QVariant(const QMap<QString, QString>&)>;

    /// `keys`: the item parameters, in the order in which roles() gets their values.
    TidalContextRoles(const QStringList& keys, Source source);

    QVariant roles(std::initializer_list<std::string_view> values);

private:
    QVariant ask(std::initializer_list<std::string_view> values) const;
    void learn(const QVariant& roles, std::initializer_list<std::string_view> values);

    QStringList m_keys;
    Source m_source;
    bool m_isFirst = true;
    QVariantHash m_shared;                    ///< of the first item
    std::unique_ptr<TidalEncodedPath> m_path; ///< null while, or because, copies are not to be made
};
