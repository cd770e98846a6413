// A walk through everything that the program shows, for people to look at: opens the windows, draws
// each model in both modes, and saves a picture of each station.
//
//     zorvant_tour FOLDER [editors|design|notes|pictures] [dark]
// With a second word those stations alone.
#include "data/file_dialog.h"
#include "data/project_file.h"
#include "dialogs/common/calc_dialog.h"
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/diagram/diagram_walk.h"
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "platform/host.h"
#include "shell/dropped_files.h"
#include "shell/qt/application.h"
#include "shell/qt/binder.h"

#include <QtWidgets>

#include <cstdio>

namespace {

using namespace zorvant;

class Tour {
public:
    Tour(Application& program, QDir folder) : program_(program), folder_(std::move(folder)) {}

    void Settle() {
        Binder::PushAll();
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    void Picture(const QString& name) {
        Settle();
        const QString path = folder_.filePath(name + QStringLiteral(".png"));
        program_.window().grab().save(path);
        std::printf("%s\n", qPrintable(path));
    }
    void Command(const std::string& entry) {
        Press(program_.record().Entry(entry));
        Settle();
    }
    void Click(const char* form, const char* control) {
        Form* const dialog = FindForm(program_.state().desktop, form);
        if (dialog == nullptr || !dialog->loaded)
            return;
        if (auto* const button = dynamic_cast<Button*>(dialog->Find(control)))
            Press(*button);
        else if (auto* const entry = dynamic_cast<MenuEntry*>(dialog->Find(control)))
            Press(*entry);
        Settle();
    }
    void Close(const char* form) {
        if (Form* const dialog = FindForm(program_.state().desktop, form))
            UnloadForm(program_.state().desktop, *dialog);
        Settle();
    }

    void Models(const std::string& command, const QString& mode) {
        for (int option = 0; option < 20; ++option) {
            Command(command);
            auto& model =
                dynamic_cast<frmZorModel&>(*FindForm(program_.state().desktop, "frmZorModel"));
            Press(model.optTyp, option);
            Click("frmPrepareTimeDiagram", "cmdDrawctDiagram");
            Picture(QStringLiteral("%1_%2").arg(mode).arg(program_.state().ModelId, 2, 10,
                                                          QLatin1Char('0')));
            Close("frmZGraph2D");
        }
    }

    void Run() {
        Picture(QStringLiteral("start"));
        Click("frmZorModel", "cmdShowMatrix");
        Picture(QStringLiteral("matrix"));
        Close("frmmatrix");
        Models("mnuctGraph", QStringLiteral("ct"));
        Models("mnuvtGraph", QStringLiteral("rt"));
        Command("mnuctGraph");
        Click("frmPrepareTimeDiagram", "cmdListe");
        Picture(QStringLiteral("table"));
        Close("frmSimTabelle");
        Click("frmPrepareTimeDiagram", "cmdDrawctDiagram");
        for (const char* panel : {"mnuCoord", "mnuKurvenDesign", "mnuAddLegend"}) {
            Click("frmZGraph2D", panel);
            Picture(QStringLiteral("diagram_") + QString::fromLatin1(panel));
        }
        Close("frmZGraph2D");
        Notes();
        MichaelisMenten();
        EveryOtherCommand();
        Editors();
    }

    /// Saves a picture of the modal dialog that opens next, then does what the user does.
    void Modal(const char* name, const std::function<void()>& act) {
        QTimer::singleShot(800, &program_.window(), [this, name, act] {
            if (QWidget* const dialog = QApplication::activeModalWidget()) {
                dialog->grab().save(
                    folder_.filePath(QStringLiteral("%1.png").arg(QString::fromLatin1(name))));
                act();
            }
        });
    }

    /// The file dialog with the preview of a data file and of a project.
    void FileDialog(const std::string& folder) {
        Workspace& ps = program_.state();
        const auto choose = [&](const std::string& path) {
            host().chooseFile = [path](const FileRequest&) { return FileChoice{path}; };
        };
        ps.ExpComment = "Hydrolysis of ethyl acetate, run 12, 25 degrees, pH 7.4";
        choose(folder + "/run12.ZI3");
        Click("frmDatedit", "cmdSave");
        ps.ProjectComment = "Which order has the hydrolysis?";
        Modal("comment", [this] { Click("frmCommentInput", "cmdOK"); });
        FuSaveProjectFile(ps, folder + "/hydrolysis.ZC3");
        ps.ProjectTitle = "hydrolysis.ZC3";
        for (const char* const pattern : {"*.ZI3", "*.ZC3"}) {
            Modal(pattern[3] == 'I' ? "files_data" : "files_project",
                  [this] { Click("frmZCmnDlg", "cmdOpenCancel"); });
            std::string path, name, directory = folder;
            bool cancelled = false;
            Binder::Run(nullptr, [&] {
                FuFileDialog(path, name, directory, pattern, "Loading experimental data",
                             cancelled);
            });
        }
    }

    /// The editors of data and the import, with measured values in them.
    void Editors() {
        Close("frmZorModel");
        QTemporaryDir files;
        QFile text(files.filePath(QStringLiteral("run.csv")));
        if (text.open(QIODevice::WriteOnly)) {
            text.write("Hydrolysis, 25 degrees\nTime/min;c(A)/(mol/L);lambda\n");
            for (int i = 0; i < 40; ++i)
                text.write(qPrintable(
                    QStringLiteral("%1;0,%2;%3,5\n").arg(i * 5).arg(9000 - i * 211).arg(100 + i)));
            text.close();
        }
        const std::string path = text.fileName().toStdString();
        Modal("import", [this] { Click("frmImportText", "cmdOK"); });
        Binder::Run(nullptr, [&] { OpenDropped(program_.record(), path); });
        Picture(QStringLiteral("data_editor"));
        FileDialog(files.path().toStdString());
        Click("frmDatedit", "TSort");
        Click("frmDatedit", "cmdAus");
        Click("frmDatedit", "cmdDraw_ct");
        Picture(QStringLiteral("data_editor_with_points"));
        Close("frmZGraph2D");
        Close("frmDatedit");
        Command("mnuEditXY");
        Picture(QStringLiteral("xy_editor_empty"));
        host().clipboardText = [] { return std::string("1\t2.5\n2\t4.1\n3\t5.2\n4\t5.9\n"); };
        Click("frmZXYEditor", "cmdClipEinfuegen");
        Click("frmZXYEditor", "cmdManip");
        Picture(QStringLiteral("xy_editor"));
        Click("frmZXYEditor", "cmdDrawManu");
        Picture(QStringLiteral("xy_editor_with_curve"));
    }

    /// The panels of pictures and the print preview.
    void Pictures() {
        Command("mnuctGraph");
        Click("frmPrepareTimeDiagram", "cmdDrawctDiagram");
        for (const char* entry : {"mnuBild_1", "mnuBild_2", "mnuBild_3"}) {
            Click("frmZGraph2D", entry);
            Picture(QString::fromLatin1(entry));
        }
        QTimer::singleShot(800, &program_.window(), [this] { // the preview is modal
            if (QWidget* const dialog = QApplication::activeModalWidget()) {
                dialog->grab().save(folder_.filePath(QStringLiteral("preview.png")));
                dialog->close();
            }
        });
        Click("frmZGraph2D", "cmdPreview");
        Close("frmZGraph2D");
    }

    /// Texts, marks, labels and legend of a diagram, its curve panel and the calculator.
    void Notes() {
        Command("mnuctGraph");
        auto& model =
            dynamic_cast<frmZorModel&>(*FindForm(program_.state().desktop, "frmZorModel"));
        Press(model.optTyp, 4);
        Click("frmPrepareTimeDiagram", "cmdDrawctDiagram");
        auto& diagram =
            dynamic_cast<DiagramDocument&>(*FindForm(program_.state().desktop, "frmZGraph2D"));
        for (int text = 1; text <= kCurveTexts; ++text) {
            Press(diagram.mnuTextDesign(text));
            Picture(QStringLiteral("notes_text_%1").arg(text));
        }
        Press(diagram.mnuTextDesign(1));
        Type(diagram.schrift, "\nalkaline hydrolysis of ethyl acetate");
        Press(diagram.chkTextFrame, true);
        Press(diagram.mnuAddText);
        Type(diagram.schrift, "25 \xC2\xB0"
                              "C, conductivity cell 2\nrun 12 of 14");
        Picture(QStringLiteral("notes_additional_text"));
        Press(diagram.cmdSchriftFertig);
        Press(diagram.mnuHalbA);
        Press(diagram.mnuHalbB);
        program_.state().tVerweil = program_.state().tMax / 3;
        Press(diagram.cmdMarkConti);
        Press(diagram.mnuAddLegend);
        Picture(QStringLiteral("notes_annotated"));
        Click("frmZGraph2D", "cmdSingleCalc");
        SetText(dynamic_cast<TextField&>(
                    *FindForm(program_.state().desktop, "frmZGraphCalc")->Find("txtX")),
                "10");
        Click("frmZGraphCalc", "cmdGraphCalcExec");
        Picture(QStringLiteral("notes_calculator"));
        Close("frmZGraph2D");
    }

    /// Every panel that changes how a diagram looks, and what it can be made to look like.
    void Design() {
        Command("mnuctGraph");
        auto& model =
            dynamic_cast<frmZorModel&>(*FindForm(program_.state().desktop, "frmZorModel"));
        Press(model.optTyp, 7);
        Click("frmPrepareTimeDiagram", "cmdDrawctDiagram");
        auto& doc = dynamic_cast<frmZGraph2D&>(*FindForm(program_.state().desktop, "frmZGraph2D"));
        DesignControls& design = doc.design;
        const auto picture = [this](const char* name) {
            Picture(QStringLiteral("design_") + QString::fromLatin1(name));
        };
        Press(doc.mnuAddLegend);
        Press(doc.mnuAddLabels);
        Press(doc.mnuKurvenDesign);
        picture("curves");
        Press(doc.mnuCoord);
        picture("coordinates");
        program_.state().ManualBuf = {{4, 0}, {10, 0.6F}, {30, 0.3F}, {50, 0.2F}, {70, 0.1F}};
        Press(doc.cmdManuPoints);
        Press(doc.mnuPunktDesign);
        picture("points");
        Press(doc.mnuDesignMore);
        for (int page = 0; page < kSettingsPages; ++page) {
            Choose(design.tabSettings, page);
            if (page == static_cast<int>(SettingsPage::Origin))
                Press(design.optStandardOrigin, 1);
            picture(("settings_" + std::to_string(page)).c_str());
        }
        FuPanelsZu(doc);
        for (Button* scheme :
             {&design.cmdFullBlack, &design.cmdRandColGrau, &design.cmdFullWhite}) {
            Press(*scheme);
            picture(scheme->name.c_str());
        }
        KeyOnChart(program_.state(), doc, ChartKey::Home);
        for (int i = 0; i < 3; ++i)
            KeyOnChart(program_.state(), doc, ChartKey::PageDown);
        picture("walk");
        Press(doc.mnuZoom);
        const PixelRect area = doc.surface.layout.plotArea;
        RubberDown(doc.surface, area.left + 80, area.top + 40);
        RubberMove(doc.surface, area.left + 260, area.top + 220);
        picture("zoom_drag");
        MouseUp(program_.state(), doc, MouseButton::Left, area.left + 260, area.top + 220);
        picture("zoomed");
        Press(doc.mnuZoomReset);
        Press(doc.mnuXLog);
        Press(doc.mnuYLog);
        picture("log_log");
        Press(doc.mnuXLog);
        Press(doc.mnuYLog);
        const char* const limits[] = {"-20", "100", "-0.4", "1"};
        for (int i = 1; i <= 4; ++i)
            SetText(doc.coord(i), limits[i - 1]);
        Press(doc.mnuCoord);
        for (int i = 1; i <= 4; ++i)
            SetText(doc.coord(i), limits[i - 1]);
        Press(doc.cmdCoord_OK);
        Press(design.optStandardOrigin, 1);
        Press(design.optXOrigin, 1);
        Press(design.optYOrigin, 1);
        Press(design.optXZiffern, 1);
        Press(design.optYZiffern, 1);
        picture("origin_at_zero");
        Press(design.optXOrigin, 2);
        Press(design.optYOrigin, 2);
        Press(design.optXZiffern, 2);
        Press(design.optYZiffern, 2);
        picture("origin_at_maximum");
        Press(doc.mnuXLog);
        Press(design.optXOrigin, 1);
        Press(design.optYOrigin, 1);
        picture("log_origin_at_zero");
    }

    void MichaelisMenten() {
        Command("mnuctGraph");
        auto& model =
            dynamic_cast<frmZorModel&>(*FindForm(program_.state().desktop, "frmZorModel"));
        Press(model.optTyp, 10);
        Click("frmPrepareTimeDiagram", "cmdMMdiagram");
        Click("frmZGraph2D", "cmdSingleCalc");
        Picture(QStringLiteral("michaelis_menten"));
        Close("frmZGraph2D");
        Close("frmPrepareTimeDiagram");
    }

    /// Each further dialog that a command of the menu opens.
    void EveryOtherCommand() {
        for (const char* command :
             {"mnuBatchR", "mnuRohrR", "mnuKontRK", "mnuKaskade", "mnuVerweilzeitVisual",
              "mnuVerweilzeitVerteilung", "mnuToolArrhenius", "mnuToolEyring", "mnuEditXY",
              "mnuNeudat", "Blutalkohol"}) {
            MenuEntry& entry = program_.record().Entry(command);
            if (!entry.available || !entry.enabled)
                continue;
            Command(command);
            Picture(QString::fromLatin1(command));
        }
    }

private:
    Application& program_;
    QDir folder_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fputs("zorvant_tour FOLDER [editors|design|notes|pictures] [dark]\n", stderr);
        return 2;
    }
    const QStringList wanted = QCoreApplication::arguments().mid(2);
    if (wanted.contains(QStringLiteral("dark")))
        QApplication::setPalette(QPalette(QColor(0x353535), QColor(0x2b2b2b)));
    QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    Application program;
    // What a box says goes to standard output; the walk goes on.
    host().messageBox = [](const MessageBox& box) {
        std::printf("box: %s: %s\n", box.title.c_str(), box.text.c_str());
        return Answer::Ok;
    };
    const QTemporaryDir own; // what it leaves unsaved is nobody's
    host().programDirectory = own.path().toStdString();
    program.Start("");
    Tour tour(program, folder);
    if (wanted.contains(QStringLiteral("editors")))
        tour.Editors();
    else if (wanted.contains(QStringLiteral("design")))
        tour.Design();
    else if (wanted.contains(QStringLiteral("pictures")))
        tour.Pictures();
    else if (wanted.contains(QStringLiteral("notes"))) {
        tour.Notes();
        tour.MichaelisMenten();
    } else
        tour.Run();
    return 0;
}
