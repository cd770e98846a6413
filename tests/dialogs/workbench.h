// A workbench without a screen: the state, the dialogs, and a host that answers and records.
#pragma once

#include "dialogs/course/frm_prepare_time_diagram.h"
#include "dialogs/course/frm_sim_tabelle.h"
#include "dialogs/course/frm_zor_model.h"
#include "dialogs/diagram/diagram_document.h"
#include "platform/host.h"

namespace zorvant {

struct Workbench {
    Workbench() {
        InitProjectState(ps);
        for (Form* form :
             {static_cast<Form*>(&model), static_cast<Form*>(&matrix), static_cast<Form*>(&time),
              static_cast<Form*>(&table), static_cast<Form*>(&diagram)})
            ps.desktop.forms.push_back(form);
    }
    void Show(Form& form) { ShowForm(ps.desktop, form); }
    /// Opens the time-diagram dialog as the menu does: model dialog anew, then the dialog in front.
    void OpenTimeDiagram(bool rates = false) {
        ps.RateDiagram = rates;
        Show(time);
        UnloadForm(ps.desktop, model);
        Show(model);
        Show(time);
        InitSimulation(time);
    }
    /// Replaces what a field holds by typing.
    template <class Field> void Retype(Field& field, const std::string& keys) {
        field.text.clear();
        Type(field, keys);
    }
    /// The text of the last message box, empty when there was none.
    std::string LastBox() const { return host.boxes.empty() ? "" : host.boxes.back().text; }

    ScriptedHost host;
    Workspace ps;
    DiagramDocument diagram{ps};
    frmZorModel model{ps};
    frmmatrix matrix{ps};
    frmPrepareTimeDiagram time{ps, diagram};
    frmSimTabelle table{ps};
};

} // namespace zorvant
