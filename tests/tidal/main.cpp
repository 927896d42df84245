#include <gtest/gtest.h>
#include <log4cplus/initializer.h>
#include <log4cplus/logger.h>
#include <QCoreApplication>

int main(int argc, char** argv)
{
    log4cplus::Initializer logging;
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::OFF_LOG_LEVEL);
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
