// The bar over a view of conversations, or of the messages of one: they narrow while one types, and
// what was found of them stands out.
#pragma once

#include <QObject>
#include <functional>
#include <string_view>
#include <vector>

#include "find/FindIndex.h"
#include "ui/html/HtmlEdit.h"

namespace quorvi {

class CHtmlCtrlBase;
class FindBar;
class HtmlFrame;

// From anywhere in the view's window Ctrl+F opens the bar and Escape closes it, and the view is as
// it was. The window's thread.
class ViewFind : public QObject {
    Q_OBJECT
  public:
    struct Searched {
        std::string_view list;  // id of the view's element whose children narrow; a literal
        QString by;             // by what one can look, in the empty field
        QString name;           // of the field, for a screen reader
        HtmlScroll scroll;      // which end of those that are found is seen: top or end
        struct Texts {
            std::string_view within;  // which elements of a child show texts of the rows; a literal
            FindKind kind;            // texts of which kind
        };
        std::vector<Texts> texts;
    };
    // What the children of the list are searched by, a row each; it knows the spellings.
    using IndexOf = std::function<FindIndex()>;

    // The view stands in the frame, which owns what is made here.
    ViewFind(HtmlFrame& frame, CHtmlCtrlBase& view, const Searched& searched);

    // Ctrl+F is heeded by whom this belongs to, from now on.
    void LeaveKey();

    [[nodiscard]] bool IsOpen() const;
    void Open();
    void Close();

    // The list has these children from now on; `index` is called whenever the bar opens.
    void SetRows(IndexOf index);

  private:
    void Narrow();
    void GoToView();

    HtmlFrame& frame_;
    CHtmlCtrlBase& view_;
    Searched searched_;
    FindBar* bar_;
    IndexOf rows_;
    FindIndex index_;
};

}  // namespace quorvi
