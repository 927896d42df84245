#include <csignal>
#include <gtest/gtest.h>
#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    std::signal(SIGPIPE, SIG_IGN); // a peer that goes is an error of the call
    qputenv("LC_ALL", "C");        // the client commands speak the user's language
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
