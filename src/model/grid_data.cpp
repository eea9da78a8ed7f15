#include "model/grid_data.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "model/app_error.h"

namespace tt {

bool SortsAsNumber(const std::string& cell, double& value) {
    std::size_t b = cell.find_first_not_of(' ');
    if (b == std::string::npos) return false;
    std::size_t e = cell.find_last_not_of(' ');
    std::string_view s(cell.data() + b, e - b + 1);
    std::size_t i = 0;
    bool neg = false;
    if (s[i] == '+' || s[i] == '-') {
        neg = s[i] == '-';
        ++i;
    }
    bool digit = false, point = false;
    for (std::size_t j = i; j < s.size(); ++j) {
        if (s[j] >= '0' && s[j] <= '9')
            digit = true;
        else if (s[j] == '.' && !point)
            point = true;
        else
            return false;
    }
    if (!digit) return false;
    std::string t(s.substr(i));
    if (t[0] == '.') t.insert(t.begin(), '0');
    if (t.back() == '.') t.push_back('0');
    double v = 0;
    if (std::from_chars(t.data(), t.data() + t.size(), v).ec == std::errc::result_out_of_range) {
        // Too many digits to hold: huge when a digit before the point is not 0, else tiny.
        std::size_t p = t.find('.');
        v = t.substr(0, p).find_first_not_of('0') != std::string::npos ? HUGE_VAL : 0.0;
    }
    value = neg ? -v : v;
    return true;
}

void GridData::Resize(int rows, int cols) {
    if (rows < 0 || cols < 0) Raise(kErrInvalidCall);
    if (static_cast<std::int64_t>(rows) * cols > 50'000'000) Raise(kErrOutOfMemory);
    if (cols != cols_) {
        std::vector<std::string> cells(static_cast<std::size_t>(rows) *
                                       static_cast<std::size_t>(cols));
        std::vector<CellAlign> align(cells.size(), CellAlign::kGeneral);
        for (int r = 0; r < std::min(rows, rows_); ++r)
            for (int c = 0; c < std::min(cols, cols_); ++c) {
                std::size_t to = static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) +
                                 static_cast<std::size_t>(c);
                cells[to] = std::move(cells_[Index(r, c)]);
                align[to] = cellAlign_[Index(r, c)];
            }
        cells_ = std::move(cells);
        cellAlign_ = std::move(align);
        colWidth_.resize(static_cast<std::size_t>(cols), -1);
        colAlign_.resize(static_cast<std::size_t>(cols), CellAlign::kGeneral);
    } else {
        cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
        cellAlign_.resize(cells_.size(), CellAlign::kGeneral);
    }
    rowHeight_.resize(static_cast<std::size_t>(rows), -1);
    rowData_.resize(static_cast<std::size_t>(rows), 0);
    rows_ = rows;
    cols_ = cols;
    row_ = std::min(row_, std::max(rows_ - 1, 0));
    rowSel_ = std::min(rowSel_, std::max(rows_ - 1, 0));
    col_ = std::min(col_, std::max(cols_ - 1, 0));
    colSel_ = std::min(colSel_, std::max(cols_ - 1, 0));
    topRow_ = std::min(topRow_, std::max(rows_ - 1, 0));
}

void GridData::SetRows(int rows) {
    Resize(rows, cols_);
}
void GridData::SetCols(int cols) {
    Resize(rows_, cols);
}

void GridData::CheckCell(int row, int col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) Raise(kErrSubscript);
}

const std::string& GridData::TextMatrix(int row, int col) const {
    CheckCell(row, col);
    return cells_[Index(row, col)];
}

void GridData::SetTextMatrix(int row, int col, std::string text) {
    CheckCell(row, col);
    cells_[Index(row, col)] = std::move(text);
}

void GridData::AssignText(int row, int col, std::string_view text) {
    CheckCell(row, col);
    cells_[Index(row, col)].assign(text);
}

int GridData::ColWidth(int col) const {
    if (col < 0 || col >= cols_) Raise(kErrSubscript);
    return colWidth_[static_cast<std::size_t>(col)];
}

void GridData::SetColWidth(int col, int twips) {
    if (col < 0 || col >= cols_) Raise(kErrSubscript);
    colWidth_[static_cast<std::size_t>(col)] = twips;
}

int GridData::RowHeight(int row) const {
    if (row < 0 || row >= rows_) Raise(kErrSubscript);
    return rowHeight_[static_cast<std::size_t>(row)];
}

void GridData::SetRowHeight(int row, int twips) {
    if (row < 0 || row >= rows_) Raise(kErrSubscript);
    rowHeight_[static_cast<std::size_t>(row)] = twips;
}

std::int64_t GridData::RowData(int row) const {
    if (row < 0 || row >= rows_) Raise(kErrSubscript);
    return rowData_[static_cast<std::size_t>(row)];
}

void GridData::SetRowData(int row, std::int64_t value) {
    if (row < 0 || row >= rows_) Raise(kErrSubscript);
    rowData_[static_cast<std::size_t>(row)] = value;
}

CellAlign GridData::ColAlignment(int col) const {
    if (col < 0 || col >= cols_) Raise(kErrSubscript);
    return colAlign_[static_cast<std::size_t>(col)];
}

void GridData::SetColAlignment(int col, CellAlign a) {
    if (col < 0 || col >= cols_) Raise(kErrSubscript);
    colAlign_[static_cast<std::size_t>(col)] = a;
}

CellAlign GridData::CellAlignment(int row, int col) const {
    CheckCell(row, col);
    CellAlign a = cellAlign_[Index(row, col)];
    return a == CellAlign::kGeneral ? colAlign_[static_cast<std::size_t>(col)] : a;
}

void GridData::SetCellAlignment(int row, int col, CellAlign a) {
    CheckCell(row, col);
    cellAlign_[Index(row, col)] = a;
}

void GridData::AddItem(const std::string& tabbedText) {
    Resize(rows_ + 1, cols_);
    int r = rows_ - 1;
    std::size_t start = 0;
    for (int c = 0; c < cols_; ++c) {
        std::size_t tab = tabbedText.find('\t', start);
        cells_[Index(r, c)] =
            tabbedText.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
        if (tab == std::string::npos) break;
        start = tab + 1;
    }
}

void GridData::RemoveRow(int row) {
    if (row < 0 || row >= rows_) Raise(kErrSubscript);
    auto first = cells_.begin() + static_cast<std::ptrdiff_t>(Index(row, 0));
    cells_.erase(first, first + cols_);
    auto firstA = cellAlign_.begin() + static_cast<std::ptrdiff_t>(Index(row, 0));
    cellAlign_.erase(firstA, firstA + cols_);
    rowHeight_.erase(rowHeight_.begin() + row);
    rowData_.erase(rowData_.begin() + row);
    --rows_;
    row_ = std::min(row_, std::max(rows_ - 1, 0));
    rowSel_ = std::min(rowSel_, std::max(rows_ - 1, 0));
    topRow_ = std::min(topRow_, std::max(rows_ - 1, 0));
}

void GridData::SetRow(int r) {
    if (r < 0 || r >= rows_) Raise(kErrSubscript);
    row_ = r;
    rowSel_ = r;
}
void GridData::SetCol(int c) {
    if (c < 0 || c >= cols_) Raise(kErrSubscript);
    col_ = c;
    colSel_ = c;
}
void GridData::SetRowSel(int r) {
    if (r < 0 || r >= rows_) Raise(kErrSubscript);
    rowSel_ = r;
}
void GridData::SetColSel(int c) {
    if (c < 0 || c >= cols_) Raise(kErrSubscript);
    colSel_ = c;
}
void GridData::SetTopRow(int r) {
    if (r < 0 || r >= rows_) Raise(kErrSubscript);
    topRow_ = r;
}

namespace {
struct Key {
    bool numeric;
    double value;
    const std::string* text;
};

int CompareKeys(const Key& a, const Key& b) {
    if (a.numeric && b.numeric) return a.value < b.value ? -1 : (a.value > b.value ? 1 : 0);
    int c = a.text->compare(*b.text);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}
}  // namespace

void GridData::ApplyOrder(int row1, const std::vector<int>& order) {
    std::size_t n = order.size();
    std::vector<std::string> cells(n * static_cast<std::size_t>(cols_));
    std::vector<CellAlign> align(cells.size());
    std::vector<int> heights(n);
    std::vector<std::int64_t> data(n);
    for (std::size_t r = 0; r < n; ++r) {
        int from = row1 + order[r];
        for (int c = 0; c < cols_; ++c) {
            cells[r * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(c)] =
                std::move(cells_[Index(from, c)]);
            align[r * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(c)] =
                cellAlign_[Index(from, c)];
        }
        heights[r] = rowHeight_[static_cast<std::size_t>(from)];
        data[r] = rowData_[static_cast<std::size_t>(from)];
    }
    std::move(cells.begin(), cells.end(),
              cells_.begin() + static_cast<std::ptrdiff_t>(Index(row1, 0)));
    std::copy(align.begin(), align.end(),
              cellAlign_.begin() + static_cast<std::ptrdiff_t>(Index(row1, 0)));
    std::copy(heights.begin(), heights.end(), rowHeight_.begin() + row1);
    std::copy(data.begin(), data.end(), rowData_.begin() + row1);
}

void GridData::SortAscending(int row1, int row2, int col1, int col2) {
    if (row1 > row2) std::swap(row1, row2);
    if (col1 > col2) std::swap(col1, col2);
    CheckCell(row1, col1);
    CheckCell(row2, col2);
    int n = row2 - row1 + 1, k = col2 - col1 + 1;
    std::vector<Key> keys(static_cast<std::size_t>(n) * static_cast<std::size_t>(k));
    for (int r = 0; r < n; ++r)
        for (int c = 0; c < k; ++c) {
            Key& key = keys[static_cast<std::size_t>(r * k + c)];
            key.text = &cells_[Index(row1 + r, col1 + c)];
            key.numeric = SortsAsNumber(*key.text, key.value);
        }
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        for (int c = 0; c < k; ++c) {
            int d = CompareKeys(keys[static_cast<std::size_t>(a * k + c)],
                                keys[static_cast<std::size_t>(b * k + c)]);
            if (d != 0) return d < 0;
        }
        return false;
    });
    ApplyOrder(row1, order);
}

void GridData::SortNumericDescending(int row1, int row2, int col) {
    if (row1 > row2) std::swap(row1, row2);
    CheckCell(row1, col);
    CheckCell(row2, col);
    int n = row2 - row1 + 1;
    std::vector<double> v(static_cast<std::size_t>(n));
    for (int r = 0; r < n; ++r) {
        double x = 0;
        if (!SortsAsNumber(cells_[Index(row1 + r, col)], x)) x = 0;
        v[static_cast<std::size_t>(r)] = x;
    }
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return v[static_cast<std::size_t>(a)] > v[static_cast<std::size_t>(b)];
    });
    ApplyOrder(row1, order);
}

void GridData::Clear() {
    for (auto& c : cells_) c.clear();
    std::fill(cellAlign_.begin(), cellAlign_.end(), CellAlign::kGeneral);
}

}  // namespace tt
