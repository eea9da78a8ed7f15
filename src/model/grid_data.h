#pragma once
// The contents of a grid as the core builds it: cells of text, fixed rows and columns, column
// widths in twips, alignment, and the generic sort. Forms show it through a table model.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tt {

enum class CellAlign : std::uint8_t {
    kGeneral,  // text to the left, numbers to the right
    kLeft,
    kCenter,
    kRight,
};

class GridData {
  public:
    GridData() { Resize(2, 2); }

    int Rows() const { return rows_; }
    int Cols() const { return cols_; }
    // Changing the counts keeps the cells that remain.
    void SetRows(int rows);
    void SetCols(int cols);
    int FixedRows() const { return fixedRows_; }
    int FixedCols() const { return fixedCols_; }
    void SetFixedRows(int n) { fixedRows_ = n; }
    void SetFixedCols(int n) { fixedCols_ = n; }

    const std::string& TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, std::string text);
    // The same, reusing the room the cell already has: for grids rebuilt over the same rows.
    void AssignText(int row, int col, std::string_view text);

    // Width in twips; 0 hides the column.
    int ColWidth(int col) const;
    void SetColWidth(int col, int twips);
    // Height in twips; -1 is the default height.
    int RowHeight(int row) const;
    void SetRowHeight(int row, int twips);

    // A number kept with each row that moves with it in a sort, such as the record the row
    // shows; 0 for a new row.
    std::int64_t RowData(int row) const;
    void SetRowData(int row, std::int64_t value);

    CellAlign ColAlignment(int col) const;
    void SetColAlignment(int col, CellAlign a);
    // A cell's own alignment wins over its column's.
    CellAlign CellAlignment(int row, int col) const;
    void SetCellAlignment(int row, int col, CellAlign a);

    // Appends a row; tab characters separate the cells of the text.
    void AddItem(const std::string& tabbedText);
    void RemoveRow(int row);

    // The current cell and the selection.
    int Row() const { return row_; }
    int Col() const { return col_; }
    int RowSel() const { return rowSel_; }
    int ColSel() const { return colSel_; }
    void SetRow(int r);
    void SetCol(int c);
    void SetRowSel(int r);
    void SetColSel(int c);
    int TopRow() const { return topRow_; }
    void SetTopRow(int r);

    // The generic ascending sort of rows row1..row2 by columns col1..col2: two cells compare as
    // numbers when both read as numbers, otherwise as text by character codes. Equal rows keep
    // their order.
    void SortAscending(int row1, int row2, int col1, int col2);
    // Descending, numbers as numbers.
    void SortNumericDescending(int row1, int row2, int col);

    // Every cell set to an empty text and default alignment; widths kept.
    void Clear();

  private:
    void Resize(int rows, int cols);
    // Puts rows row1.. in the given order of their offsets.
    void ApplyOrder(int row1, const std::vector<int>& order);
    void CheckCell(int row, int col) const;
    std::size_t Index(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }

    int rows_ = 0, cols_ = 0, fixedRows_ = 1, fixedCols_ = 1;
    std::vector<std::string> cells_;
    std::vector<CellAlign> cellAlign_;  // kGeneral = follow the column
    std::vector<int> colWidth_;
    std::vector<CellAlign> colAlign_;
    std::vector<int> rowHeight_;
    std::vector<std::int64_t> rowData_;
    int row_ = 1, col_ = 1, rowSel_ = 1, colSel_ = 1, topRow_ = 1;
};

// Whether a cell reads as a number for the generic sort: blanks trimmed, an optional sign, then
// digits with at most one point, and nothing else.
bool SortsAsNumber(const std::string& cell, double& value);

}  // namespace tt
