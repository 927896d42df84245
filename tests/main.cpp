#include <gtest/gtest.h>
#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qputenv("LC_ALL", "C"); // the client commands speak the user's language
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
