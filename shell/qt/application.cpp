#include "shell/qt/application.h"

#include "data/project_file.h"
#include "dialogs/course/frm_prepare_time_diagram.h"
#include "dialogs/course/frm_sim_tabelle.h"
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/data/frm_comment_input.h"
#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/frm_import_text.h"
#include "dialogs/data/frm_z_cmn_dlg.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "dialogs/diagram/frm_z_graph_calc.h"
#include "platform/host.h"
#include "shell/qt/graph_window.h"
#include "shell/qt/plot_output.h"
#include "shell/qt/qt_host.h"
#include "shell/qt/qt_text.h"
#include "shell/start_up.h"

#include "ui_frmCommentInput.h"
#include "ui_frmDatedit.h"
#include "ui_frmImportText.h"
#include "ui_frmPrepareTimeDiagram.h"
#include "ui_frmSimTabelle.h"
#include "ui_frmZCmnDlg.h"
#include "ui_frmZGraphCalc.h"
#include "ui_frmZXYEditor.h"
#include "ui_frmZorModel.h"
#include "ui_frmmatrix.h"

#include <QtWidgets>

/// The drawings stand in a library, so they are linked in by name (outside every namespace).
static void UseDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace zorvant {

template <class Dialog, class Ui, class... Further>
Dialog& Application::Register(WindowPlacement placement, Further&... further) {
    auto made = std::make_unique<Dialog>(ps_, further...);
    Dialog& dialog = *made;
    forms_.push_back(std::move(made));
    windows().Add(dialog, FromUi<Ui>(), placement);
    return dialog;
}

/// The table of forms: a dialog that stands here exists, and the commands that open it can be used.
void Application::RegisterForms() {
    Register<frmZorModel, Ui::frmZorModel>(WindowPlacement::BesideOthers);
    Register<frmmatrix, Ui::frmmatrix>(WindowPlacement::BesideOpener);
    auto madeGraph = std::make_unique<frmZGraph2D>(ps_);
    frmZGraph2D& graph = *madeGraph;
    forms_.push_back(std::move(madeGraph));
    windows().Add(
        graph, [&graph] { return new GraphWindow(graph); }, WindowPlacement::RightEdge,
        WindowLife::Kept);
    DiagramDocument& document = graph;
    tellScreen_ = [this, &document] {
        const QSize screen = window_->screen()->availableSize();
        document.screenWidth = screen.width();
        document.screenHeight = screen.height();
    };
    Register<frmPrepareTimeDiagram, Ui::frmPrepareTimeDiagram>(WindowPlacement::Stored, document);
    Register<frmZGraphCalc, Ui::frmZGraphCalc>(WindowPlacement::Stored, document);
    Register<frmSimTabelle, Ui::frmSimTabelle>();
    auto& data = Register<frmDatedit, Ui::frmDatedit>(WindowPlacement::BesideOthers, document);
    Register<frmZXYEditor, Ui::frmZXYEditor>(WindowPlacement::BesideOthers, document);
    Register<frmImportText, Ui::frmImportText>(WindowPlacement::Stored, data);
    auto& files = Register<frmZCmnDlg, Ui::frmZCmnDlg>();
    auto& comment = Register<frmCommentInput, Ui::frmCommentInput>();

    fileDialogHook() = [&files](FileQuestion& question) { AskForFile(files, question); };
    commentQuestion() = [this, &comment](ProjectState&) { ShowForm(ps_.desktop, comment); };
}

Application::Application() {
    InstallQtHost();
    InstallPictureOutput();
    UseDrawings();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/zorvant.svg")));
    window_ = std::make_unique<MainWindow>(record_);
    ps_.desktop.forms.push_back(&record_);
    RegisterForms();
}

Application::~Application() = default;

void Application::Start(const std::string& commandLine) {
    window_->Open();
    tellScreen_();
    QObject::connect(window_->windowHandle(), &QWindow::screenChanged, window_.get(), tellScreen_);
    ShowForm(ps_.desktop, record_);
    Binder::PushAll();
    // Boxes that loading may show need the window behind them.
    QTimer::singleShot(0, window_.get(), [this, commandLine] {
        Binder::Run(nullptr, [&] {
            OpenCommandLine(record_, commandLine);
            OfferLostData(record_);
        });
    });
}

int RunWindow(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ZORVANT"));
    Application program;
    // As it came: a name on the disk need not be in the encoding of the locale.
    program.Start(argc > 1 ? argv[1] : "");
    return QApplication::exec();
}

} // namespace zorvant
