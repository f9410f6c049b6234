// SPDX-License-Identifier: MIT
#include "qt/page_bounds.h"

#include <QByteArray>
#include <QByteArrayView>
#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace tessit::qt {

namespace {

constexpr std::string_view blanks = " \t\r\n\f/";

// Elements that are closed by the next of their kind, or have nothing in them.
constexpr std::array<std::string_view, 16> never_nested = {"br", "img", "hr", "meta", "link", "input", "p",    "li",
                                                           "td", "th",  "tr", "dt",   "dd",   "col",   "area", "base"};

struct Table {
    int rows = 1;
    int cells_in_row = 0;
    int widest_row = 0;
};

int column_span(const QByteArray& tag) {
    constexpr int most = 20480; // as the browser takes at most
    const qsizetype at = tag.indexOf("colspan");
    const qsizetype digits = at < 0 ? -1 : tag.indexOf('=', at);
    if (digits < 0) {
        return 1;
    }
    const QByteArray value = tag.mid(digits + 1).replace('"', ' ').replace('\'', ' ').trimmed();
    const auto end = std::find_if(value.begin(), value.end(), [](char c) { return c < '0' || c > '9'; });
    bool fits = false;
    const int span = value.left(end - value.begin()).toInt(&fits);
    return fits ? std::clamp(span, 1, most) : most;
}

class Extent {
public:
    // What stands between "<" and ">".
    void take_tag(std::string_view text) {
        const QByteArray tag = QByteArray(text.data(), static_cast<qsizetype>(text.size())).toLower();
        const bool closing = tag.startsWith('/');
        const std::string_view rest = std::string_view(tag).substr(closing ? 1 : 0);
        const std::string name(rest.substr(0, rest.find_first_of(blanks)));
        closing ? close(name) : open(name, tag);
    }

    void take_text(std::string_view text) {
        for (std::size_t at = 0; at < text.size(); ++at) {
            word_ = blanks.find(text[at]) == std::string_view::npos ? word_ + 1 : 0;
            longest_word_ = std::max(longest_word_, word_);
        }
    }

    bool within_bounds() const {
        return nested_ <= most_nested_elements && tables_.size() <= most_nested_tables && cells_ <= most_table_cells &&
               longest_word_ <= longest_page_word;
    }

private:
    void open(const std::string& name, const QByteArray& tag) {
        if (std::find(never_nested.begin(), never_nested.end(), name) == never_nested.end()) {
            ++open_[name];
            ++nested_;
        }
        if (name == "table") {
            tables_.emplace_back();
        } else if (!tables_.empty()) {
            take_table_part(tables_.back(), name, tag);
        }
    }

    void take_table_part(Table& table, const std::string& name, const QByteArray& tag) {
        const qint64 before = qint64{table.rows} * table.widest_row;
        if (name == "tr") {
            ++table.rows;
            table.cells_in_row = 0;
        } else if (name == "td" || name == "th") {
            table.cells_in_row += column_span(tag);
            table.widest_row = std::max(table.widest_row, table.cells_in_row);
        }
        cells_ += qint64{table.rows} * table.widest_row - before;
    }

    void close(const std::string& name) {
        const auto found = open_.find(name);
        if (found != open_.end() && found->second > 0) {
            --found->second;
            --nested_;
        }
        if (name == "table" && !tables_.empty()) {
            tables_.pop_back();
        }
    }

    std::map<std::string, int> open_;
    int nested_ = 0;
    std::vector<Table> tables_;
    qint64 cells_ = 0;
    std::size_t word_ = 0;
    std::size_t longest_word_ = 0;
};

} // namespace

bool is_within_bounds(std::string_view page) {
    Extent extent;
    while (!page.empty() && extent.within_bounds()) {
        const std::string_view text = page.substr(0, page.find('<'));
        extent.take_text(text);
        page.remove_prefix(text.size());
        if (!page.empty()) {
            const std::string_view tag = page.substr(1, page.find_first_of("<>", 1) - 1);
            extent.take_tag(tag);
            page.remove_prefix(std::min(page.size(), tag.size() + 1));
        }
    }
    return extent.within_bounds();
}

} // namespace tessit::qt
