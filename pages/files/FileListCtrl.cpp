#include "pages/files/FileListCtrl.h"

#include <array>

#include "base/Format.h"
#include "pages/files/FileName.h"
#include "ui/kit/QtText.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

enum Column { columnName, columnSize, columnType, columnModified, columnAttributes };

constexpr std::array<ListColumn, 5> kColumns{{
    {.caption = u8"文件名",
     .width = 254,
     .kind = CellKind::iconText,
     .cells = CellAlign::left,
     .name = true},
    {u8"大小", 100},
    {u8"文件类型", 100},
    {u8"上次修改时间", 160},
    {u8"属性", 110, CellKind::text, CellAlign::left},
}};

}  // namespace

CFileListCtrl::CFileListCtrl(QWidget* parent)
    : RecordListCtrl(kColumns, look::Metric::rowCompact, parent) {
    // While a folder is fetched the list is disabled; it keeps its ground, so that nothing flickers
    // on a walk from folder to folder.
    look::SetPaletteColor(*this, QPalette::Base, look::Color::surface, QPalette::Disabled);
}

Cell CFileListCtrl::CellOf(const FileRecord& record, int column) const {
    switch (column) {
        case columnName: {
            const FileNameParts parts = SplitFileName(record.path);
            const FileIcon& icon = icons_.Of(record.isFolder, parts.extension);
            return {.text = ToShownQString(parts.name), .icon = icon.own, .themeIcon = icon.theme};
        }
        case columnSize:
            return {.text = ToQString(FormatByteSize(record.size))};
        case columnType:
            return {.text = ToQString(FileTypeText(record.isFolder))};
        case columnModified:
            return {.text = ToQString(ModifiedTimeText(record.modifiedTime))};
        case columnAttributes:
            return {.text = ToShownQString(record.attributes.View())};
        default:
            return {};
    }
}

}  // namespace quorvi
