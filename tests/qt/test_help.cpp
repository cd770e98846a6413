// The help: every topic of the contents has its page, every link leads somewhere, the search finds.
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/help_viewer.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

const QString kDirectory = QStringLiteral(SOURCE_DIR "/help");

TEST(Help, EveryPageStandsInTheContentsAndEveryLinkLeadsToAPage) {
    const HelpViewer viewer(kDirectory);
    QStringList listed;
    for (const HelpViewer::Entry& entry : viewer.contents()) {
        EXPECT_FALSE(entry.title.isEmpty());
        listed << QStringLiteral("%1.html").arg(entry.topic);
    }
    const QStringList pages = QDir(kDirectory).entryList({QStringLiteral("*.html")});
    EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()),
              QSet<QString>(pages.begin(), pages.end()));
    const QRegularExpression link(QStringLiteral("href=\"([^\"]*)\""));
    for (const QString& page : pages) {
        QFile file(kDirectory + u'/' + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const auto& match : link.globalMatch(QString::fromUtf8(file.readAll())))
            EXPECT_TRUE(pages.contains(match.captured(1)))
                << page.toStdString() << " -> " << match.captured(1).toStdString();
    }
}

TEST(Help, EveryOpenableWindowHasATopic) {
    const ScriptedHost restore;
    Application program;
    const HelpViewer viewer(kDirectory);
    for (const Form* form : program.state().desktop.forms) {
        const bool found = std::ranges::any_of(
            viewer.contents(), [&](const auto& entry) { return entry.topic == form->helpTopic; });
        EXPECT_TRUE(found) << form->name << " has topic " << form->helpTopic;
    }
    for (const HelpRow& row : HelpRows())
        EXPECT_TRUE(QFileInfo::exists(kDirectory + QStringLiteral("/%1.html").arg(row.topic)));
}

TEST(Help, ShowsAPageByNumberAndSaysWhenThereIsNone) {
    HelpViewer viewer(kDirectory);
    viewer.ShowTopic(11223);
    auto& page = Child<QTextBrowser>(viewer, "");
    EXPECT_TRUE(page.toPlainText().startsWith(QStringLiteral("Erste Schritte")));
    EXPECT_TRUE(viewer.windowTitle().contains(QStringLiteral("Erste Schritte")));
    viewer.ShowTopic(424242);
    EXPECT_TRUE(page.toPlainText().contains(QStringLiteral("There is no topic 424242")));
    HelpViewer lost(QStringLiteral("/nonexistent"));
    lost.ShowTopic(11223);
    EXPECT_TRUE(Child<QTextBrowser>(lost, "").toPlainText().contains(QStringLiteral("not found")));
}

TEST(Help, F1ShowsTheTopicOfTheWindowInFront) {
    const ScriptedHost restore;
    Application program;
    int shown = 0;
    host().showHelp = [&](int topic) { shown = topic; };
    program.Start("");
    Settle();
    Key(Qt::Key_F1);
    EXPECT_EQ(shown, 10240);
}

TEST(Help, TheSearchFindsPagesThatHoldAllWords) {
    HelpViewer viewer(kDirectory);
    const std::vector<int> found = viewer.Search(QStringLiteral("RUNGE kutta"));
    EXPECT_THAT(found, testing::ElementsAre(10242));
    EXPECT_TRUE(viewer.Search(QStringLiteral("zwanzig xylophone")).empty());
    EXPECT_TRUE(viewer.Search(QStringLiteral("  ")).empty());
    auto& search = Child<QLineEdit>(viewer, "");
    search.setText(QStringLiteral("kutta"));
    viewer.ShowTopic(11223); // another question
    EXPECT_TRUE(search.text().isEmpty());
    EXPECT_GT(Child<QTreeWidget>(viewer, "").topLevelItemCount(), 1);
}

} // namespace
} // namespace zorvant
