// Names of what a phone keeps, as a sentence of the program's own shows them.
#pragma once

#include <QString>
#include <QStringList>

namespace quorvi {

// A name in one line, of its first characters where it is long; nothing in it turns round the order
// in which the sentence is read.
[[nodiscard]] QString ShortName(const QString& name);

// The first five of these names, and where there are more, how many there are in all:
// 张三、李四、王五、赵六、钱七… 等 12 个. Empty for none.
[[nodiscard]] QString NamesInWords(const QStringList& names);

}  // namespace quorvi
