#pragma once
// The contents of a list or combo box as the core fills it: texts with item data and one
// selection. Forms show it; the rules that fill and select it live in the core.

#include <cstdint>
#include <string>
#include <vector>

namespace tt {

struct ListItem {
    std::string text;
    std::int64_t itemData = 0;
};

class ListData {
  public:
    ListData() = default;
    // A sorted list keeps its entries in order of their text, as a sorted list box does
    // (without regard to case); others keep the order of adding.
    explicit ListData(bool sorted) : sorted_(sorted) {}

    void Clear() {
        items_.clear();
        listIndex_ = -1;
    }
    // Returns the index the entry took.
    int AddItem(std::string text, std::int64_t itemData = 0);
    void RemoveItem(int index);

    int ListCount() const { return static_cast<int>(items_.size()); }
    const std::string& List(int index) const;
    std::int64_t ItemData(int index) const;
    const std::vector<ListItem>& Items() const { return items_; }
    bool Sorted() const { return sorted_; }

    // -1 means nothing selected.
    int ListIndex() const { return listIndex_; }
    void SetListIndex(int index);
    bool HasSelection() const { return listIndex_ >= 0; }
    // The text and item data of the selection; empty and 0 with none.
    std::string Text() const { return HasSelection() ? List(listIndex_) : std::string(); }
    std::int64_t SelectedData() const { return HasSelection() ? ItemData(listIndex_) : 0; }

  private:
    std::vector<ListItem> items_;
    int listIndex_ = -1;
    bool sorted_ = false;
};

}  // namespace tt
