// The help: topics by number in a window of their own, with a table of contents and a search.
//
// A topic is help/<number>.html. help/contents.txt lists them in reading order, one a line:
// number, blank, title; two blanks before it for each level; lines with # are notes.
#pragma once

#include <QMap>
#include <QString>
#include <QWidget>

#include <vector>

class QLineEdit;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

namespace zorvant {

class HelpViewer : public QWidget {
public:
    explicit HelpViewer(const QString& directory, QWidget* parent = nullptr);

    /// The folder of the help: beside the program, in the tree of an installation or sources.
    /// Returned: empty when there is none.
    static QString FindDirectory();

    /// Shows a topic and brings the window to the front; a number without a topic shows the
    /// contents with a note.
    void ShowTopic(int topic);
    int topic() const { return topic_; }

    struct Entry {
        int topic;
        int level;
        QString title;
    };
    const std::vector<Entry>& contents() const { return contents_; }
    /// Topics whose text holds all words, in the order of the contents.
    std::vector<int> Search(const QString& words);

private:
    void ReadContents();
    void BuildWidgets();
    void FillTree(const QString& words);
    void Display(int topic);
    QString TitleOf(int topic) const;
    QString PathOf(int topic) const;

    QString directory_;
    std::vector<Entry> contents_;
    QMap<int, QString> texts_; ///< for the search, read at the first one
    int topic_ = 0;
    QTextBrowser* page_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    QLineEdit* search_ = nullptr;
};

} // namespace zorvant
