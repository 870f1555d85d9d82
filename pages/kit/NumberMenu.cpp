#include "pages/kit/NumberMenu.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {

NumberMenu::NumberMenu(PageHost& host, const Services& services)
    : host_(host), toWriteTo_(services.numbersToWriteTo), toAdd_(services.numbersToAdd) {}

QStringList NumberMenu::Icons() {
    return {QStringLiteral("copy"), QStringLiteral("compose"), QStringLiteral("add-contact")};
}

void NumberMenu::AddItems(CSkinMenu& menu, int image, const std::string& number) {
    const auto state = number.empty() ? CSkinMenu::disabled : CSkinMenu::normal;
    menu.AddItem(state, commandCopy, image, ToQString(u8"复制号码"));
    menu.AddItem(state, commandWrite, image + 1, ToQString(u8"给这个号码写短信"));
    menu.AddItem(state, commandAdd, image + 2, ToQString(u8"添加为联系人"));
}

bool NumberMenu::Take(int command, const std::string& number) const {
    switch (command) {
        case commandCopy: {
            const QString text = ToShownQString(number);
            QGuiApplication::clipboard()->setText(text);
            host_.SetStatus(ToQString(u8"已复制号码 %1").arg(text));
            return true;
        }
        case commandWrite:
            toWriteTo_.Add(number);
            host_.Post(Message::pageCommand, static_cast<int>(PageCommand::writeToNumber));
            return true;
        case commandAdd:
            toAdd_.Add(number);
            host_.Post(Message::pageCommand, static_cast<int>(PageCommand::addNumber));
            return true;
        default:
            return false;
    }
}

}  // namespace quorvi
