#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/OperandLines.h"
#include "cli/Output.h"
#include "refdata/AreaTable.h"
#include "refdata/NumberAttribution.h"

namespace quorvi::cli {

Status RunNumber(const Arguments& arguments, const Context&, Output& output) {
    const CPhoneDb db;
    ForEachOperand(arguments.operands, [&](const std::string& operand) {
        const std::string number = ToAnsi(operand);
        const auto [caption, areaCode] = ClassifyNumber(number, db);
        if (!output.Json()) {
            output.PrintLine(caption);
            return;
        }
        Json::Value line;
        line["number"] = JsonText(number);
        line["caption"] = JsonText(caption);
        line["area_code"] = areaCode;
        line["postal_code"] = JsonText(areaCode == 0 ? std::string_view() : PostalCode(areaCode));
        output.PrintJsonLine(line);
    });
    return Status::done;
}

}  // namespace quorvi::cli
