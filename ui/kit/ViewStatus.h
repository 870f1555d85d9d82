// What a list or tree shows when it has nothing to show, or while its page is at work.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>
#include <cstdint>

class QPainter;
class QRect;
class QWidget;

namespace quorvi {

enum class ListState : std::uint8_t {
    idle,     // its rows, or that it is empty
    loading,  // that work goes on
    failed,   // that nothing could be fetched
};

// The state of one view, its sentences, and how they are painted on its viewport.
class ViewStatus : public QObject {
    Q_OBJECT
  public:
    explicit ViewStatus(QWidget* viewport);

    void Set(ListState state);
    [[nodiscard]] ListState Get() const { return state_; }
    // How far the load has come, in bytes; a total of 0 means that it is not known.
    void SetProgress(std::uint64_t have, std::uint64_t total);
    void SetEmptyText(const QString& headline, const QString& sentence);
    void SetFailedText(const QString& headline, const QString& sentence);

    // The picture and sentence of an empty list or failed load.
    void PaintVoid(QPainter& painter) const;
    // The picture of an empty list over what was not found, and how one gets all back.
    void PaintNothingFound(QPainter& painter, const QString& headline) const;
    // What has come so far, at the foot; nothing where the length is not known.
    void PaintProgress(QPainter& painter) const;
    // The running bar at the viewport's top.
    void PaintBar(QPainter& painter) const;
    // A block in place of something that has not come yet.
    static void PaintBlock(QPainter& painter, const QRect& rect);

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    void Paint(QPainter& painter, QStringView shown, const QString& headline,
               const QString& sentence) const;

    QWidget* viewport_;
    ListState state_ = ListState::idle;
    std::uint64_t have_ = 0;
    std::uint64_t total_ = 0;
    QBasicTimer motion_;
    int phase_ = 0;  // of the running bar, in milliseconds
    QString emptyHeadline_;
    QString emptySentence_;
    QString failedHeadline_;
    QString failedSentence_;
};

}  // namespace quorvi
