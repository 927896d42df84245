#include <gtest/gtest.h>
#include <kelo/CMError.h>
#include <kelo/KeloRoles.h>
#include <QCoreApplication>
#include <QTranslator>

namespace {

/// Puts a mark before the texts of the context "C".
class MarkingTranslator : public QTranslator
{
public:
    explicit MarkingTranslator(const char* mark) : m_mark(QString::fromUtf8(mark)) {}

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "C") == 0 ? m_mark + QString::fromUtf8(source) : QString();
    }
    bool isEmpty() const override { return false; }

private:
    QString m_mark;
};

} // namespace

TEST(TrStringTest, TravelsUntranslatedAndReadsAsATextOfTheProcess)
{
    const MarkingTranslator client("client ");
    MarkingTranslator process("process ");
    const QString place("%2");
    const TrString text = TrString::in("C", "%2 before %1", {place, TrString::in("C", "two")});
    KeloRoles roles;
    roles.setTitle(text);
    const CMError error(text);
    for (const QVariant& value :
         {roles.toHash().value(KeloRoles::Title()), error.toHash().value(CMError::Message())}) {
        EXPECT_EQ(value.value<TrString>().toString(client), "client client two before %2");
        EXPECT_EQ(value, QVariant::fromValue(text));
        EXPECT_NE(value, QVariant::fromValue(TrString(TrCharData{"C", "other", nullptr})));
    }
    EXPECT_EQ(roles.title(), "two before %2");
    QCoreApplication::installTranslator(&process);
    EXPECT_EQ(roles.title(), "process process two before %2");
    EXPECT_EQ(error.message(), "process process two before %2");
    QCoreApplication::removeTranslator(&process);

    EXPECT_EQ(TrString::in("D", "%1!", {QString("a")}).toString(client), "a!");
    roles.setTitle(TrString(QStringLiteral("of the service")));
    EXPECT_EQ(roles.toHash().value(KeloRoles::Title()).userType(), int(QMetaType::QString));
}
