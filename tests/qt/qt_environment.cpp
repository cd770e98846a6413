// Every test of this program runs inside a QApplication on the platform that draws nowhere.
#include <QApplication>

#include <gtest/gtest.h>

#include <memory>

namespace {

class QtEnvironment : public testing::Environment {
public:
    void SetUp() override {
        static int count = 1;
        static char name[] = "test_qt";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(count, arguments);
        application_->setStyle(QStringLiteral("Fusion"));
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment =
    testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
