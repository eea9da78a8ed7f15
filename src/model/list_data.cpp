#include "model/list_data.h"

#include <algorithm>
#include <cctype>

#include "model/app_error.h"
#include "model/common.h"

namespace tt {

int ListData::AddItem(std::string text, std::int64_t itemData) {
    if (!sorted_) {
        items_.push_back({std::move(text), itemData});
        return ListCount() - 1;
    }
    auto it = std::upper_bound(
        items_.begin(), items_.end(), text,
        [](const std::string& t, const ListItem& i) { return LessNoCase(t, i.text); });
    int index = static_cast<int>(it - items_.begin());
    items_.insert(it, {std::move(text), itemData});
    if (listIndex_ >= index) ++listIndex_;
    return index;
}

void ListData::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) Raise(kErrInvalidCall);
    items_.erase(items_.begin() + index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
}

const std::string& ListData::List(int index) const {
    if (index < 0 || index >= ListCount()) Raise(kErrInvalidCall);
    return items_[static_cast<std::size_t>(index)].text;
}

std::int64_t ListData::ItemData(int index) const {
    if (index < 0 || index >= ListCount()) Raise(kErrInvalidCall);
    return items_[static_cast<std::size_t>(index)].itemData;
}

void ListData::SetListIndex(int index) {
    if (index < -1 || index >= ListCount()) Raise(kErrInvalidCall);
    listIndex_ = index;
}

}  // namespace tt
