#include "refdata/PhoneSpecs.h"

#include <algorithm>

#include "base/os/SmallFile.h"

namespace quorvi {
namespace {

void ReadModels(const XmlElement& maker, std::size_t chosen, SpecsLists& lists) {
    const std::vector<XmlElement> models = maker.Descendants("item");
    for (const XmlElement& model : models) {
        lists.models.push_back(model.Attribute("device").value_or(std::string()));
    }
    if (chosen >= models.size()) {
        return;
    }
    for (const XmlElement& value : models[chosen].Children()) {
        if (lists.values.size() == kSpecCaptions.size()) {
            break;
        }
        lists.values.push_back(value.Text());
    }
}

}  // namespace

std::optional<SpecsLists> ReadSpecs(const XmlDocument& file, const SpecsChoice& choice) {
    const std::size_t platform = choice.platform < kSpecsPlatforms.size() ? choice.platform : 0;
    const auto top = file.Top("main");
    const auto section = top ? top->Child(kSpecsPlatforms.at(platform).element) : std::nullopt;
    if (!section) {
        return std::nullopt;
    }
    SpecsLists lists;
    const std::vector<XmlElement> makers = section->Children();
    for (const XmlElement& maker : makers) {
        lists.makers.push_back(maker.Attribute("manufacturer").value_or(std::string()));
    }
    if (choice.maker < makers.size()) {
        // By its name, as one who follows the path of names finds it.
        ReadModels(*section->Child(makers[choice.maker].Name()), choice.model, lists);
    }
    return lists;
}

std::optional<SpecsLists> ReadSpecs(const std::filesystem::path& file, const SpecsChoice& choice) {
    const auto bytes = ReadSmallFile(file, kMostXmlBytes);
    return bytes ? ReadSpecs(XmlDocument(*bytes), choice) : std::nullopt;
}

}  // namespace quorvi
