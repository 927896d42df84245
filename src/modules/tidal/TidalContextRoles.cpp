#include "TidalContextRoles.h"
#include <kelo/KeloRoles.h>

TidalContextRoles::TidalContextRoles(const QStringList& keys, Source source)
    : m_keys(keys), m_source(std::move(source))
{
}

QVariant TidalContextRoles::roles(std::initializer_list<std::string_view> values)
{
    if (m_path) {
        QVariantHash roles = m_shared;
        roles[KeloRoles::Path()] = m_path->text(values);
        return roles;
    }
    const QVariant roles = ask(values);
    if (m_isFirst)
        learn(roles, values);
    m_isFirst = false;
    return roles;
}

QVariant TidalContextRoles::ask(std::initializer_list<std::string_view> values) const
{
    QMap<QString, QString> params;
    for (int i = 0; i < m_keys.size(); ++i) {
        const std::string_view value = values.begin()[i];
        params.insert(m_keys.at(i), QString::fromUtf8(value.data(), int(value.size())));
    }
    return m_source(params);
}

void TidalContextRoles::learn(const QVariant& roles, std::initializer_list<std::string_view> values)
{
    m_shared = roles.toHash();
    // An accept path carries the parameters too.
    if (m_shared.isEmpty() || m_shared.contains(KeloRoles::AcceptPath()))
        return;
    const QString text = m_shared.value(KeloRoles::Path()).toString();
    const CMPath base = CMPath::fromEncoded(text.left(text.indexOf(QLatin1Char('?'))));
    auto path = std::make_unique<TidalEncodedPath>(base, m_keys);
    if (path->text(values) == text)
        m_path = std::move(path);
}
