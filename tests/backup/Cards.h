// Cards of made-up people, for tests.
#pragma once

#include "backup/ContactCard.h"

namespace quorvi::test {

// One with something in every field, and an item of every kind of type: one that vCards have words
// for, one that they have none for, and one that the suite does not know.
inline ContactCard FullCard() {
    ContactCard card;
    card.favourite = true;
    card.name = "张三丰";
    card.nickname = "三丰, 老张; \\o/";
    card.note = "第一行\n第二行: a,b;c\\d\n\n 缩进的一行";
    card.phones = {{2, "+86 138-0013-8000"},
                   {3, "010-88886666"},
                   {1, "021-55557777"},
                   {4, "010-88886667"},
                   {5, "021-55557778"},
                   {6, "126-1234"},
                   {7, "10086"},
                   {0, "4008005555"},
                   {17, "9999"},
                   {0, "13900000000", "女儿"},
                   {2, "13911112222", "备用机"}};
    card.groups = {"家人", "同事,北京", "a;b"};
    card.emails = {{1, "sanfeng@example.com"},
                   {2, "zhang@example.org"},
                   {3, "z3@example.net"},
                   {4, "138@example.cn"},
                   {0, "zsf@example.com"}};
    card.ims = {
        {0, "a1"},    {1, "m1@example.com"}, {2, "y1"}, {3, "live:z"},    {4, "10001"}, {5, "g1"},
        {6, "12345"}, {7, "j@example.com"},  {8, "n1"}, {-1, "custom,1"}, {42, "other"}};
    card.websites = {{0, "http://example.com/?a=1;b=2,3"}, {1, "weibo.example/zsf"}};
    card.addresses = {{0, "北京市海淀区中关村大街 1 号, 100080"},
                      {1, "武当山\n紫霄宫"},
                      {2, "a;b"},
                      {3, "c"},
                      {9, "d"}};
    card.organisations = {{0, "武当派; 总部"}, {1, "太极,公司"}, {2, "三"}};
    card.photo = std::string("\xFF\xD8\xFF\xE0\0\x10JFIF", 10) + std::string(300, '\x5A');
    return card;
}

}  // namespace quorvi::test
