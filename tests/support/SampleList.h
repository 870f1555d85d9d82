// A list with a column of each kind, for tests, pictures and the benchmark.
#pragma once

#include <QBuffer>
#include <QImage>
#include <array>
#include <string>
#include <vector>

#include "ui/list/RecordListCtrl.h"
#include "ui/look/Look.h"

namespace quorvi {

struct SampleRecord {
    std::uint64_t id = 0;
    QString name;
    QString number;
    std::string photo;
    bool favourite = false;
};

enum SampleColumn {
    samplePicture,
    sampleName,
    sampleStar,
    sampleLink,
    sampleRating,
    sampleSecondLink,
    sampleImageLink,
    sampleProgress,
    sampleTick,
    sampleHidden,
};

inline constexpr std::array<ListColumn, 10> kSampleColumns{{
    {u8"头像", 60, CellKind::picture},
    {.caption = u8"联系人",
     .width = 180,
     .kind = CellKind::twoLines,
     .cells = CellAlign::left,
     .name = true},
    {u8"收藏", 44, CellKind::star},
    {u8"分类", 80, CellKind::twoLinesLink},
    {u8"评级", 130, CellKind::rating},
    {u8"详细", 60, CellKind::link, CellAlign::centre, CellAlign::centre, 1},
    {u8"访问", 66, CellKind::imageLink},
    {u8"进度", 70, CellKind::progress},
    {u8"选择", 40, CellKind::check},
    {u8"", 0},
}};

class SampleListCtrl : public RecordListCtrl<SampleRecord> {
  public:
    explicit SampleListCtrl(QWidget* parent = nullptr, int rowHeight = look::Metric::rowTall)
        : RecordListCtrl(kSampleColumns, rowHeight, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const SampleRecord& record, int column) const override {
        switch (column) {
            case sampleName:
                return {.text = record.name, .second = record.number};
            case sampleStar:
                return {.value = record.favourite ? 1 : 0};
            case sampleLink:
                return {.text = QStringLiteral("工具"),
                        .second = QStringLiteral("详细"),
                        .secondInk = look::Color::statedLink};
            case sampleRating:
                return {.value = static_cast<int>(record.id % 6)};
            case sampleSecondLink:
                return {.text = QStringLiteral("详细"), .ink = look::Color::statedLink};
            case sampleImageLink:
                return {.icon = QStringLiteral("open-external")};
            case sampleProgress:
                return {.text = QStringLiteral("N/A"),
                        .value = record.favourite ? static_cast<int>(record.id % 101) : -1};
            default:
                return {};
        }
    }
    [[nodiscard]] RowPicture PictureOf(const SampleRecord& record) const override {
        return {.id = record.id, .bytes = record.photo};
    }
};

// The bytes of a JPEG of 48 by 48 in a colour of the index.
inline std::string SamplePhoto(int index) {
    QImage image(48, 48, QImage::Format_RGB32);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 48; ++x) {
            image.setPixel(
                x, y,
                qRgb((index * 37 + x) % 256, (index * 59 + y) % 256, (index * 83 + x * y) % 256));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG");
    return bytes.toStdString();
}

// Records with photos; sixteen different ones are enough to tell them apart.
inline std::vector<SampleRecord> SampleRecords(int count) {
    std::vector<std::string> photos;
    for (int i = 0; i < 16; ++i) {
        photos.push_back(SamplePhoto(i));
    }
    std::vector<SampleRecord> records;
    records.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        records.push_back({static_cast<std::uint64_t>(i) + 1, QStringLiteral("联系人 %1").arg(i),
                           QString::number(13800000000LL + i),
                           photos[static_cast<std::size_t>(i % 16)], i % 3 == 0});
    }
    return records;
}

}  // namespace quorvi
