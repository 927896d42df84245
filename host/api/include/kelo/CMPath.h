#pragma once
#include "KeloHash.h"
#include "KeloShared.h"
#include <QHash>
#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>

/// Address of a node in the content tree: a base of "/"-separated segments plus named parameters.
///
/// The base alone decides where a request goes; search texts, names and foreign addresses travel as
/// parameters and never take part in routing. A value type with shared data; copies may be handed
/// between threads, one object is not for concurrent use.
class KELO_EXPORT CMPath
{
public:
    /// What equals() compares.
    enum Compare {
        CompareAll = 0, ///< base and parameters
        CompareBase = 1 ///< the base alone
    };
    using Params = QMap<QString, QString>;

    CMPath() = default;
    /// A path of this base, taken as it is, without parameters.
    explicit CMPath(const QString& base);
    CMPath(const QString& base, const Params& params);

    const QString& base() const;
    void setBase(const QString& base);
    /// Whether base and parameters are both empty.
    bool isEmpty() const { return base().isEmpty() && params().isEmpty(); }

    const Params& params() const;
    /// The parameter's value; empty when there is none.
    QString param(const QString& name) const { return params().value(name); }
    bool hasParam(const QString& name) const { return params().contains(name); }
    /// Sets a parameter, replacing one of the same name.
    void addParam(const QString& name, const QString& value);
    void addParams(const Params& params);
    void setParams(const Params& params);
    void removeParam(const QString& name);
    void clearParams();

    /// Adds one segment, with exactly one "/" between it and the base.
    void appendSubpath(const QString& segment);
    /// A new path whose base has the text appended as it is: no separator, no cleaning.
    CMPath operator+(const QString& text) const;

    /// Case-sensitive substring test on the base; parameters are not looked at.
    bool contains(const QString& text) const;
    /// Whether the other path's base is this base or an ancestor of it, compared by whole segments,
    /// and its parameters are among these. `rest` receives the base's remainder.
    bool startsWith(const CMPath& other, QString* rest = nullptr) const;
    bool equals(const CMPath& other, Compare compare = CompareAll) const;
    bool operator==(const CMPath& other) const { return equals(other, CompareAll); }
    bool operator!=(const CMPath& other) const { return !equals(other, CompareAll); }
    /// Whether each of the other path's parameters is here with the same value.
    bool includesParams(const CMPath& other) const;

    /// The base's segments, empty ones left out.
    QStringList splitBase() const { return base().split(QLatin1Char('/'), Qt::SkipEmptyParts); }

    /// The path as one text: `base?k=v&k=v`, keys sorted, every key and value percent-encoded
    /// (RFC 3986, unreserved characters stay). In the base only "%", "?", "#" and characters that
    /// are not printable ASCII are encoded, so that fromEncoded() brings every path back unchanged.
    QString toEncoded() const;
    /// Reads the text form; `ok` tells whether it was well-formed (an escape that is not two hex
    /// digits, text that is not UTF-8 or a parameter without a name is not).
    static CMPath fromEncoded(const QString& text, bool* ok = nullptr);
    /// Appends "name=value" to an encoded path or query in the form that toEncoded() writes; for
    /// rows that share a path and differ in one parameter. The caller keeps the keys in order.
    static void appendEncodedParam(QString& text, const QString& name, const QString& value);

private:
    class Data;
    Data* writable();

    KeloShared<Data> m_data; ///< null for the empty path
};

KELO_EXPORT uint qHash(const CMPath& path, uint seed = 0);

/// In a hash it stands as its text.
template <>
struct KeloField<CMPath>
{
    static CMPath read(const QVariant& value) { return CMPath::fromEncoded(value.toString()); }
    static QVariant written(const CMPath& path) { return path.toEncoded(); }
};

/// Declares a function that returns a path of the host tree.
#define KELO_PATH(function, base)                                                                  \
    inline CMPath function()                                                                       \
    {                                                                                              \
        static const CMPath path(QStringLiteral(base));                                            \
        return path;                                                                               \
    }

Q_DECLARE_METATYPE(CMPath)
