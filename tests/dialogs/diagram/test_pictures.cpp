// The panel of pictures on its records: what is asked of the clipboard, the file and the printer.
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "platform/files.h"
#include "platform/host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

using testing::HasSubstr;

class Pictures : public testing::Test {
protected:
    Pictures() {
        InitProjectState(ps);
        ps.desktop.forms.push_back(&graph);
        ShowForm(ps.desktop, graph);
        graph.surface.layout.picture = {0, 0, 900, 600};
        pictureOutput().copyToClipboard = [this](PlotSurface&, PictureFormat format) {
            asked.push_back("clipboard " + std::to_string(static_cast<int>(format)));
            return true;
        };
        pictureOutput().drawToFile = [this](PlotSurface&, const std::string& file,
                                            PictureFormat format, const PictureSize& size) {
            EXPECT_EQ(screen.waitDepth, 1);
            asked.push_back(file + " " + std::to_string(static_cast<int>(format)));
            drawn = size;
            if (file == "/full.EMF")
                throw FileError("no space is left");
            return true;
        };
        pictureOutput().printChart = [this](PlotSurface&, const PrintRequest& request) {
            asked.push_back("print " + std::to_string(static_cast<int>(request.scaling)));
            printed = request;
            return true;
        };
    }
    ~Pictures() override { pictureOutput() = kept_; }

    PicturePanel& panel() { return graph.pictures; }
    void Open(int mode) { Press(graph.mnuBild(mode)); }

    ScriptedHost screen;
    Workspace ps;
    frmZGraph2D graph{ps};
    std::vector<std::string> asked;
    PictureSize drawn;
    PrintRequest printed;

private:
    PictureOutput kept_ = pictureOutput();
};

TEST_F(Pictures, ACopyIsAVectorOrABitmap) {
    Open(1);
    Press(panel().cmdPrint_Esc);
    EXPECT_TRUE(asked.empty() && !graph.fraPrintIt.visible);
    Open(1);
    Press(panel().cmdPrint); // starts on the vector picture
    EXPECT_FALSE(graph.fraPrintIt.visible);
    Open(1);
    Choose(panel().cmbGraphFormat, 0);
    Press(panel().cmdPrint);
    EXPECT_THAT(asked, testing::ElementsAre("clipboard 3", "clipboard 1"));
}

TEST_F(Pictures, AFileIsWrittenInTheFormatChosen) {
    const struct {
        int index;
        const char* name;
        const char* asked;
    } rows[] = {{2, "/a.WMF", "/a.WMF 3"}, // as the panel opens
                {0, "/a.bmp", "/a.bmp 1"}, {1, "/a.wmf", "/a.wmf 2"},
                {3, "/a.EMF", "/a.EMF 3"}, // 13 as long as the name is not known
                {4, "/a.WMF", "/a.WMF 4"}, {7, "/a.PDF", "/a.PDF 23"}};
    for (const auto& row : rows) {
        Open(2);
        Choose(panel().cmbGraphFormat, row.index);
        EXPECT_EQ(panel().txtPictureDpi.enabled, row.index == 0);
        screen.files = {FileChoice{.path = row.name}};
        Press(panel().cmdPrint);
        EXPECT_EQ(asked.back(), row.asked);
    }
    EXPECT_EQ(screen.fileRequests[3].filters[0].first, "Enhanced MetaFile (*.EMF)");
    EXPECT_EQ(screen.fileRequests[3].extension, ".EMF");
    const std::size_t before = asked.size();
    Open(2);
    Press(panel().cmdPrint); // no name
    Open(2);
    screen.files = {FileChoice{.path = "/a.png"}}; // a name that says something else
    Press(panel().cmdPrint);
    EXPECT_EQ(asked.size(), before);
    EXPECT_THAT(screen.boxes.back().text, HasSubstr(".PNG"));
    Open(2);
    Choose(panel().cmbGraphFormat, 3);
    screen.files = {FileChoice{.path = "/full.EMF"}};
    Press(panel().cmdPrint);
    EXPECT_EQ(screen.boxes.back().text, "no space is left");
    EXPECT_EQ(screen.waitDepth, 0);
}

TEST_F(Pictures, SizesThatMakeNoSenseAreRefused) {
    Open(2);
    Choose(panel().cmbGraphFormat, 0);
    SetText(panel().txtPictureWidth, "8,5");
    SetText(panel().txtPictureDpi, "600");
    EXPECT_EQ(panel().lblPictureSize.text, "2008 x 2362 pixels");
    screen.files = {FileChoice{.path = "/a.bmp"}};
    Press(panel().cmdPrint);
    EXPECT_EQ(drawn.width, 8.5);
    EXPECT_EQ(drawn.dotsPerInch, 600);
    for (const char* width :
         {"", "0", "-3", "1e9", "nan", "15abc", "90"}) { // 90 cm: too many pixels
        Open(2);
        Choose(panel().cmbGraphFormat, 0);
        SetText(panel().txtPictureWidth, width);
        const std::size_t boxes = screen.boxes.size();
        Press(panel().cmdPrint);
        EXPECT_EQ(screen.boxes.size(), boxes + 1) << width;
        EXPECT_TRUE(graph.fraPrintIt.visible) << width;
    }
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(Pictures, APrintIsPlacedByTheCodesOfItsScaling) {
    Open(3);
    Press(panel().cmdPrint);
    EXPECT_EQ(printed.scaling, PaperScaling::Width);
    EXPECT_EQ(printed.left, 3.0); // half a centimetre inside
    EXPECT_EQ(printed.top, 2.5);
    EXPECT_EQ(printed.width, 15);
    const struct {
        int option;
        int code;
        PaperRect rect;
    } rows[] = {{2, 5, {3.5, 3, 14, 23.7}}, {3, 3, {3.5, 3, 15, 10}}, {4, 2, {3.5, 3, 15, 10}}};
    for (const auto& row : rows) {
        Open(3);
        Press(panel().optSM, row.option);
        Press(panel().cmdPrint);
        EXPECT_EQ(static_cast<int>(printed.scaling), row.code);
        const PaperRect rect = PlaceOnPaper(printed, AspectOf(graph.surface));
        EXPECT_NEAR(rect.left, row.rect.left, 1e-12);
        EXPECT_NEAR(rect.top, row.rect.top, 1e-12);
        EXPECT_NEAR(rect.width, row.rect.width, 1e-12);
        EXPECT_NEAR(rect.height, row.rect.height, 1e-12);
    }
    // beyond the page: only when it is wanted so
    Open(3);
    SetText(panel().txtWidth_in_cm, "18");
    screen.answers = {Answer::Cancel};
    const std::size_t before = asked.size();
    Press(panel().cmdPrint);
    EXPECT_EQ(asked.size(), before);
    EXPECT_THAT(screen.boxes.back().text, HasSubstr("21.0 x 29.7 cm"));
    Press(panel().cmdPrint);
    EXPECT_EQ(asked.size(), before + 1);
}

TEST_F(Pictures, ABlackChartIsAskedAbout) {
    SetPlotAreaColours(graph.surface, {.back = kBlack, .fore = kWhite});
    screen.answers = {Answer::Cancel};
    Open(3);
    EXPECT_FALSE(graph.fraPrintIt.visible);
    EXPECT_EQ(screen.boxes.back().text, "You have selected a black chart. \r\n\r\n"
                                        "Do you really want to print it like that?");
}

} // namespace
} // namespace zorvant
