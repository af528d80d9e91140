#include "Tamba/Background.h"
#include "tests/app/Support.h"

#include <QSemaphore>

namespace tamba {

class BackgroundTests : public QObject {
    Q_OBJECT

private slots:
    void ofManyOnlyTheLastIsDoneAndOneAtATime() {
        std::atomic<int> begun = 0, beside = 0, most = 0;
        QSemaphore goOn;
        std::vector<int> done;
        Background background;
        for (int i = 0; i < 5; ++i)
            background.start([&, i](const std::atomic<bool>&) -> Background::Done {
                ++begun;
                most = std::max(most.load(), ++beside);
                goOn.acquire();
                --beside;
                return [&done, i] { done.push_back(i); };
            });
        QVERIFY(background.isBusy());
        goOn.release(5);
        QTRY_VERIFY(!background.isBusy());
        QCOMPARE(done, std::vector<int>{4});
        QCOMPARE(begun.load(), 2);  // the first was under way already
        QCOMPARE(most.load(), 1);

        background.start([&](const std::atomic<bool>&) -> Background::Done {
            goOn.acquire();
            return [&done] { done.push_back(5); };
        });
        background.start([](const std::atomic<bool>&) -> Background::Done { return {}; });
        background.cancel();
        QVERIFY(!background.isBusy());
        goOn.release(5);
        QTest::qWait(50);
        QCOMPARE(done, std::vector<int>{4});
    }
};

static const TestClass<BackgroundTests> registered;

}  // namespace tamba

#include "BackgroundTests.moc"
