// The windows of the dialogs: which widget shows which form, and where it stands.
#pragma once

#include "platform/controls.h"
#include "shell/qt/binder.h"

#include <QMdiArea>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvant {

/// Makes the widget of a form with all its children; the binder connects it afterwards.
using WidgetFactory = std::function<QWidget*()>;

/// The factory of a window that is all in Qt Designer's file: FromUi<Ui::frmBatch>().
template <class Ui> WidgetFactory FromUi() {
    return [] {
        auto* const root = new QWidget;
        Ui().setupUi(root);
        return root;
    };
}

/// Where a window opens when the user has not moved it yet.
enum class WindowPlacement {
    Stored,       ///< at the form's left and top
    BesideOthers, ///< right of the windows that are open, as far as there is room
    BesideOpener, ///< at the right edge of the window from which it was opened
    RightEdge
};

/// What becomes of the widgets of a window that is closed.
enum class WindowLife {
    Closed, ///< they go with it
    Kept    ///< they wait, hidden, for the next opening: for windows that come and go often
};

/// Shows forms as sub-windows of a work area, or as dialogs of their own when they are modal, and
/// closes them. Sets the host's showForm, hideForm and closeForm as long as it lives.
///
/// Positions are kept in twips, 15 to a pixel, stored in the record when a window closes and moved
/// inside the work area when it opens. A window can't be made smaller than its contents want,
/// unless the work area is too small for them: then it scrolls. A window whose root widget has the
/// dynamic property "maximizes" (tables, diagrams) can fill the whole area.
class FormWindows {
public:
    FormWindows(Desktop& desktop, QMdiArea& area);
    ~FormWindows();
    FormWindows(const FormWindows&) = delete;
    FormWindows& operator=(const FormWindows&) = delete;

    /// Enters a form into the table and into the desktop's list of the dialogs that exist.
    void Add(Form& form, WidgetFactory factory, WindowPlacement placement = WindowPlacement::Stored,
             WindowLife life = WindowLife::Closed);

    /// Holds each form's record against its widgets, both ways. Returned: one text for each form
    /// that does not fit.
    std::vector<std::string> Mismatches() const;

    /// The widget of an open form, nullptr when it has none.
    QWidget* WidgetOf(const Form& form) const;
    /// The form whose window is in front, nullptr when none is.
    Form* ActiveForm() const;

private:
    struct Entry {
        Form* form = nullptr;
        WidgetFactory factory;
        WindowPlacement placement = WindowPlacement::Stored;
        WindowLife life = WindowLife::Closed;
        bool waiting = false;      ///< closed, its widgets kept
        bool wasMaximized = false; ///< when it was closed
        Form* opener = nullptr;    ///< was in front when it opened, gets the focus when it closes
        QPointer<QWidget> frame;   ///< the sub-window or the dialog
        QPointer<QWidget> root;    ///< the widget that the factory made
        Binder* binder = nullptr;
        QPoint opened;                ///< where the program put it
        QSize fitted;                 ///< the size that the program gave it last
        std::optional<QPoint> chosen; ///< where the user put a modal dialog
        QSize asked{0, 0}; ///< the size in twips that the form wanted when it was last looked at
    };

    Entry* Find(const Form& form);
    const Entry* Find(const Form& form) const;
    void Show(Form& form);
    void Hide(Form& form);
    void Close(Form& form);
    void OpenWindow(Entry& entry);
    void FrameDialog(Entry& entry);
    void FrameSubWindow(Entry& entry);
    std::function<void()> CloseRequest(Form& form);
    void NotePlace(Entry& entry);
    void PlaceWindow(Entry& entry);
    void RunModal(Entry& entry);
    void KeepWhole(Entry& entry);
    void KeepPlace(Entry& entry);
    void BringForward(Entry& entry);
    void ActivateNext(Form* wanted);
    QPoint PlaceFor(const Entry& entry, const QSize& size) const;
    void FollowSize(Entry& entry);
    void ActivatedByUser(QWidget* frame);

    Desktop& desktop_;
    QMdiArea& area_;
    std::vector<std::unique_ptr<Entry>> entries_;
    Form* active_ = nullptr;
    bool arranging_ = false; ///< windows are being opened or closed by the program
    QObject context_;        ///< what is connected or postponed ends with this object
};

} // namespace zorvant
