// What one part of a page has said in the window's status.
#pragma once

#include <QString>

#include "ui/page/Page.h"

namespace quorvi {

// Takes back only its own words, and only while they still stand there. The window's thread.
class SaidStatus {
  public:
    explicit SaidStatus(PageHost& host) : host_(host) {}

    void Say(const QString& text) {
        host_.SetStatus(text);
        said_ = text;
    }
    // 就绪 in the place of what was said last.
    void TakeBack() {
        if (!said_.isEmpty()) {
            host_.TakeBackStatus(said_);
            said_.clear();
        }
    }

  private:
    PageHost& host_;
    QString said_;
};

}  // namespace quorvi
