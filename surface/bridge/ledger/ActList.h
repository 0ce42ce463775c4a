#pragma once

// The lines of the window Ledger, newest first: read page by page as somebody goes down, and never moved by
// what happens meanwhile. The window owns the one.

#include "bridge/ledger/reading/Acts.h"
#include "surface/bridge/ledger/ActText.h"
#include "surface/bridge/ledger/LedgerQuestion.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

class ActList {
  public:
    static constexpr std::size_t PageSize = 200;
    static constexpr std::size_t Most = 4000; ///< lines; beyond them the newest go, until Home

    /// `read` outlives it.
    explicit ActList(const LedgerRead& read);

    Label lblNew{"lblNew"};   ///< "12 new"; pressed, it does what Home does
    Label lblActs{"lblActs"}; ///< what holds of the lines
    TableBox tblActs{"tblActs", ActColumns()};

    /// Another act is chosen, or none.
    std::function<void()> onChosen;

    /// Where somebody was in the lines.
    struct Place {
        std::int64_t top = 0;    ///< the act of the first line, 0 for the newest
        std::int64_t chosen = 0; ///< 0 for none
        std::size_t lines = 0;
    };
    Place Here() const;
    /// Other lines: those that `search` finds, from the newest on, or as they were at `place`.
    void List(const Search& search, const Place& place);
    /// No lines, and these words in their place.
    void Clear(const std::string& words);
    /// The newest, from the first line on.
    void Home();
    /// Something was written: says how much is new, and what has become of acts that are listed.
    void Written();
    /// Acts that are listed may have been taken back.
    void Refresh();

    const Search& Asked() const { return search; }
    /// Null for none.
    const ActRow* Chosen() const;
    /// Oldest first.
    std::vector<std::int64_t> Ticked() const;
    /// The ticked lines, or the chosen one, with tabs between the cells; empty for neither.
    std::string Copied() const;

  private:
    void Further();
    void Took(std::vector<ActRow> found, const Place& place);
    void Show(const std::vector<ActRow>& found);
    void SayNew();
    void LookAgain(bool all);
    void Failed(const DatabaseResult& result) { lblActs.SetCaption(Readable(result.words)); }

    LedgerQuestion page;  ///< of further lines
    LedgerQuestion newer; ///< of what has come or changed
    Search search;
    std::deque<ActRow> acts; ///< as listed
    std::size_t news = 0;    ///< acts that came since
    std::int64_t newest = 0; ///< of those seen, listed or counted as new
    bool more = false;       ///< more than could be counted at once
    bool listed = false;     ///< the first page is there
    bool whole = false;      ///< there are no older ones
    bool again = false;      ///< something was written while a question was under way
    bool againAll = false;
};

} // namespace halyard
