#include "tests/films/Films.h"

#include <QApplication>
#include <QtTest>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int failed = 0;
    for (const auto& make : {tamba::storyboardTests, tamba::filmTests})
        failed += QTest::qExec(make().get(), argc, argv);
    return failed == 0 ? 0 : 1;
}
