#include "shell/qt/form_windows.h"

#include "platform/host.h"
#include "shell/qt/form_frames.h"
#include "shell/qt/menus.h"

#include <QtWidgets>

namespace zorvant {
namespace {

constexpr int kTwipsPerPixel = 15;
/// Smallest part of a window that scrolls because the work area has no room for it, in pixels.
constexpr int kLeastWidth = 240, kLeastHeight = 160;
/// Whether a flag holds for a scope.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Flag() { flag_ = before_; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
    bool before_;
};

QWidget* Build(const Form& form, const WidgetFactory& factory) {
    QWidget* const root = factory();
    if (form.menu.empty())
        return root;
    auto* const bar = root->findChild<QMenuBar*>();
    QMenuBar* const shown = bar != nullptr ? bar : new QMenuBar(root);
    shown->setNativeMenuBar(false);
    BuildMenuBar(*shown, form.menu);
    if (bar == nullptr && root->layout() != nullptr)
        root->layout()->setMenuBar(shown);
    return root;
}

} // namespace

FormWindows::FormWindows(Desktop& desktop, QMdiArea& area) : desktop_(desktop), area_(area) {
    host().showForm = [this](Form& form) { Show(form); };
    host().hideForm = [this](Form& form) { Hide(form); };
    host().closeForm = [this](Form& form) { Close(form); };
    QObject::connect(&area_, &QMdiArea::subWindowActivated, &context_,
                     [this](QMdiSubWindow* window) { ActivatedByUser(window); });
}

FormWindows::~FormWindows() {
    for (const auto& entry : entries_) {
        if (entry->binder != nullptr)
            entry->binder->Detach();
        delete entry->frame.data(); // it calls back here when its contents change their size
    }
    host().showForm = [](Form&) {};
    host().hideForm = [](Form&) {};
    host().closeForm = [](Form&) {};
}

void FormWindows::Add(Form& form, WidgetFactory factory, WindowPlacement placement,
                      WindowLife life) {
    auto entry = std::make_unique<Entry>();
    entry->form = &form;
    entry->factory = std::move(factory);
    entry->placement = placement;
    entry->life = life;
    entries_.push_back(std::move(entry));
    if (std::ranges::find(desktop_.forms, &form) == desktop_.forms.end())
        desktop_.forms.push_back(&form);
}

std::vector<std::string> FormWindows::Mismatches() const {
    std::vector<std::string> texts;
    for (const auto& entry : entries_) {
        const std::unique_ptr<QWidget> root(Build(*entry->form, entry->factory));
        try {
            Binder trial(*entry->form, *root);
        } catch (const std::runtime_error& fault) {
            texts.emplace_back(fault.what());
        }
    }
    return texts;
}

FormWindows::Entry* FormWindows::Find(const Form& form) {
    const auto found =
        std::ranges::find_if(entries_, [&](const auto& entry) { return entry->form == &form; });
    return found == entries_.end() ? nullptr : found->get();
}

const FormWindows::Entry* FormWindows::Find(const Form& form) const {
    return const_cast<FormWindows*>(this)->Find(form);
}

QWidget* FormWindows::WidgetOf(const Form& form) const {
    const Entry* const entry = Find(form);
    return entry == nullptr ? nullptr : entry->root.data();
}

Form* FormWindows::ActiveForm() const {
    return active_ != nullptr && active_->loaded ? active_ : nullptr;
}

void FormWindows::Show(Form& form) {
    Entry* const entry = Find(form);
    if (entry == nullptr)
        return;
    const Control* const focus = form.setFocus;
    {
        const Flag arranging(arranging_);
        if (active_ != &form && active_ != nullptr)
            entry->opener = active_;
        if (!entry->frame)
            OpenWindow(*entry);
        else if (std::exchange(entry->waiting, false))
            PlaceWindow(*entry);
        if (!form.modal)
            BringForward(*entry);
    }
    form.setFocus = focus; // coming to the front has given it to the first field
    Binder::PushAll();
    if (form.modal)
        RunModal(*entry);
}

void FormWindows::BringForward(Entry& entry) {
    auto* const window = static_cast<QMdiSubWindow*>(entry.frame.data());
    if (std::exchange(entry.wasMaximized, false))
        window->showMaximized();
    else if (window->isMinimized())
        window->showNormal();
    else
        window->show();
    entry.root->show();
    area_.setActiveSubWindow(window);
    active_ = entry.form;
}

void FormWindows::Hide(Form& form) {
    Entry* const entry = Find(form);
    if (entry == nullptr || !entry->frame)
        return;
    const Flag arranging(arranging_);
    if (auto* const dialog = qobject_cast<QDialog*>(entry->frame))
        dialog->done(QDialog::Rejected); // showing it returns
    else
        entry->frame->hide();
}

void FormWindows::Close(Form& form) {
    Entry* const entry = Find(form);
    if (entry == nullptr || !entry->frame)
        return;
    const Flag arranging(arranging_);
    QWidget* const frame = entry->frame;
    KeepPlace(*entry);
    if (active_ == &form)
        active_ = nullptr;
    QTimer::singleShot(0, &context_, [this, opener = entry->opener] { ActivateNext(opener); });
    if (entry->life == WindowLife::Kept) {
        frame->hide();
        entry->waiting = true;
        return;
    }
    entry->binder->Detach();
    entry->binder = nullptr;
    entry->frame.clear();
    entry->root.clear();
    if (auto* const window = dynamic_cast<SubWindow*>(frame)) {
        window->onMoved = nullptr;
        window->hide();
        area_.removeSubWindow(window);
    } else if (auto* const dialog = qobject_cast<QDialog*>(frame)) {
        dialog->done(QDialog::Rejected);
    }
    frame->deleteLater(); // its own event may be under way
}

/// What a closing window's next opening needs. One that fills the area or is an icon becomes an
/// ordinary one first: hidden so it would come back without its title.
void FormWindows::KeepPlace(Entry& entry) {
    QWidget& frame = *entry.frame;
    Form& form = *entry.form;
    if (form.modal) {
        if (frame.pos() != entry.opened)
            entry.chosen = frame.pos();
        return;
    }
    entry.wasMaximized = entry.life == WindowLife::Kept && frame.isMaximized();
    if (frame.isMaximized() || frame.isMinimized())
        frame.showNormal();
    if (frame.isHidden() || frame.pos() == entry.opened)
        return;
    form.left = frame.x() * kTwipsPerPixel;
    form.top = frame.y() * kTwipsPerPixel;
    entry.placement = WindowPlacement::Stored; // the user has chosen
}

/// When a command that closed a window is over and has opened none, the window from which that one
/// was opened is in front, else the one that was used last.
void FormWindows::ActivateNext(Form* wanted) {
    if (ActiveForm() != nullptr)
        return;
    const auto canBe = [this](const Form* form) {
        const Entry* const entry = form == nullptr ? nullptr : Find(*form);
        return entry != nullptr && form->loaded && !form->hidden && !form->modal && entry->frame &&
               entry->frame->isVisible();
    };
    if (!canBe(wanted)) {
        const auto last = std::find_if(desktop_.order.rbegin(), desktop_.order.rend(), canBe);
        wanted = last == desktop_.order.rend() ? nullptr : *last;
    }
    if (wanted == nullptr)
        return;
    auto* const window = static_cast<QMdiSubWindow*>(Find(*wanted)->frame.data());
    area_.setActiveSubWindow(window);
    ActivatedByUser(window);
}

void FormWindows::OpenWindow(Entry& entry) {
    Form& form = *entry.form;
    QWidget* const root = Build(form, entry.factory);
    entry.root = root;
    entry.binder = new Binder(form, *root);
    if (form.modal) {
        FrameDialog(entry);
    } else {
        FrameSubWindow(entry);
        PlaceWindow(entry);
    }
    entry.binder->onPushed = [this, &entry] { FollowSize(entry); };
}

std::function<void()> FormWindows::CloseRequest(Form& form) {
    return [this, &form] {
        UnloadForm(desktop_, form);
        Binder::PushAll();
    };
}

void FormWindows::FrameDialog(Entry& entry) {
    auto* const dialog = new ModalWindow(area_.window());
    dialog->onCloseRequest = CloseRequest(*entry.form);
    dialog->helpTopic = entry.form->helpTopic;
    dialog->setWindowModality(Qt::WindowModal); // the help can be read beside it
    auto* const layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const scroll = new FormScroll(entry.root);
    layout->addWidget(scroll);
    dialog->setWindowTitle(entry.root->windowTitle());
    entry.frame = dialog;

    MeasureAnew(*entry.root);
    scroll->onNeededSize = [dialog, scroll] {
        dialog->setMinimumSize(WithinScreen(*scroll, scroll->NeededSize()));
    };
    scroll->onNeededSize();
    dialog->resize(WithinScreen(*scroll, scroll->sizeHint()));
    if (entry.chosen)
        dialog->move(*entry.chosen);
}

void FormWindows::FrameSubWindow(Entry& entry) {
    auto* const scroll = new FormScroll(entry.root);
    auto* const window = new SubWindow;
    window->onCloseRequest = CloseRequest(*entry.form);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    if (!entry.root->property("maximizes").toBool())
        window->setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    window->setWidget(scroll);
    window->setWindowTitle(entry.root->windowTitle());
    window->setWindowIcon(QApplication::windowIcon());
    area_.addSubWindow(window);
    for (QAction* action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>()); // the menu of windows has the same keys
    entry.frame = window;
    entry.asked = {0, 0};

    MeasureAnew(*entry.root);
    // A closed window may live on for a moment, longer than this object at the very end.
    scroll->onNeededSize = [this, area = QPointer(&area_), &entry, window] {
        if (area && entry.frame == window)
            KeepWhole(entry);
    };
    KeepWhole(entry);
    window->onMoved = [this, &entry] { NotePlace(entry); };
}

/// The contents want another size: the window is never smaller than they need, as far as the work
/// area has room. One that still has the size that the program gave it takes the new one, larger or
/// smaller, and stays inside the work area.
void FormWindows::KeepWhole(Entry& entry) {
    auto* const window = static_cast<QMdiSubWindow*>(entry.frame.data());
    const auto* const scroll = static_cast<FormScroll*>(window->widget());
    const QSize border = window->sizeHint() - scroll->sizeHint();
    const QSize room = area_.viewport()->size();
    const QSize needed = scroll->NeededSize() + border;
    const bool follows = window->isVisible() && !window->isMaximized() && !window->isMinimized() &&
                         window->size() == entry.fitted && entry.form->width == 0;
    window->setMinimumSize(needed.boundedTo(room.expandedTo({kLeastWidth, kLeastHeight})));
    if (!follows)
        return;
    const Flag arranging(arranging_);
    entry.fitted = WithinRoom(*scroll, scroll->sizeHint() + border, room);
    window->resize(entry.fitted);
    window->move(std::min(window->x(), std::max(0, room.width() - window->width())),
                 std::min(window->y(), std::max(0, room.height() - window->height())));
}

/// Where the user puts a window the form knows at once: its unload event may ask.
void FormWindows::NotePlace(Entry& entry) {
    if (arranging_ || !entry.frame || !entry.frame->isVisible() || entry.frame->isMaximized() ||
        entry.frame->isMinimized())
        return;
    entry.form->left = entry.frame->x() * kTwipsPerPixel;
    entry.form->top = entry.frame->y() * kTwipsPerPixel;
    entry.placement = WindowPlacement::Stored;
}

void FormWindows::PlaceWindow(Entry& entry) {
    const Form& form = *entry.form;
    auto* const window = static_cast<QMdiSubWindow*>(entry.frame.data());
    auto* const scroll = static_cast<FormScroll*>(window->widget());
    const QSize border = window->sizeHint() - scroll->sizeHint();
    QSize size = (scroll->sizeHint() + border).expandedTo(scroll->NeededSize() + border);
    if (form.width > 0)
        size.setWidth(std::max(form.width / kTwipsPerPixel, window->minimumWidth()));
    if (form.height > 0)
        size.setHeight(std::max(form.height / kTwipsPerPixel, window->minimumHeight()));
    entry.asked = {form.width, form.height};
    size = WithinRoom(*scroll, size, area_.viewport()->size());
    window->resize(size);
    entry.fitted = size;
    window->move(PlaceFor(entry, size));
    entry.opened = window->pos();
}

QPoint FormWindows::PlaceFor(const Entry& entry, const QSize& size) const {
    const QSize room = area_.viewport()->size();
    QPoint place(entry.form->left / kTwipsPerPixel, entry.form->top / kTwipsPerPixel);
    if (entry.placement == WindowPlacement::RightEdge)
        place.setX(room.width() - size.width());
    if (const Entry* const opener = entry.opener == nullptr ? nullptr : Find(*entry.opener);
        entry.placement == WindowPlacement::BesideOpener && opener != nullptr && opener->frame)
        place = opener->frame->geometry().topRight() + QPoint(1, 0);
    if (entry.placement == WindowPlacement::BesideOthers)
        for (const auto& other : entries_)
            if (other.get() != &entry && other->frame && other->frame->isVisible() &&
                other->placement == WindowPlacement::Stored && !other->form->modal)
                place.setX(std::max(place.x(), other->frame->geometry().right() + 1));
    place.setX(std::clamp(place.x(), 0, std::max(0, room.width() - size.width())));
    place.setY(std::clamp(place.y(), 0, std::max(0, room.height() - size.height())));
    return place;
}

void FormWindows::FollowSize(Entry& entry) {
    if (!entry.frame || entry.form->modal)
        return;
    if (entry.frame->windowTitle() != entry.root->windowTitle())
        entry.frame->setWindowTitle(entry.root->windowTitle());
    const QSize wanted(entry.form->width, entry.form->height);
    if (wanted == entry.asked)
        return;
    entry.asked = wanted;
    QSize size = entry.frame->size();
    if (wanted.width() > 0)
        size.setWidth(wanted.width() / kTwipsPerPixel);
    if (wanted.height() > 0)
        size.setHeight(wanted.height() / kTwipsPerPixel);
    entry.frame->resize(
        size.boundedTo(area_.viewport()->size()).expandedTo(entry.frame->minimumSize()));
}

void FormWindows::RunModal(Entry& entry) {
    auto* const dialog = static_cast<QDialog*>(entry.frame.data());
    const QPointer<QDialog> alive(dialog);
    QTimer::singleShot(0, dialog, [&entry, dialog] { entry.opened = dialog->pos(); });
    dialog->exec();
    if (alive)
        dialog->hide();
}

void FormWindows::ActivatedByUser(QWidget* frame) {
    if (arranging_ || frame == nullptr)
        return;
    for (const auto& entry : entries_) {
        if (entry->frame != frame || entry->form == active_)
            continue;
        Form& form = *entry->form;
        active_ = &form;
        std::erase(desktop_.order, &form);
        desktop_.order.push_back(&form);
        Binder::Run(nullptr, form.onActivate);
        return;
    }
}

} // namespace zorvant
