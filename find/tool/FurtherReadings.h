// Readings that names have beside the one that ICU knows of a character.
#pragma once

#include <array>
#include <string_view>

namespace quorvi {

struct FurtherReading {
    char32_t character;
    std::string_view readings;  // parted by blanks, as ReadingsOf gives them
};

// Surnames that are read otherwise than the word, and characters of given names and of places that
// people read in two ways.
inline constexpr std::array kFurtherReadings = std::to_array<FurtherReading>({
    {U'不', "bu fou"},        {U'乐', "le yue"},        {U'乘', "cheng sheng"},
    {U'仇', "chou qiu"},      {U'仔', "zai zi"},        {U'会', "hui kuai"},
    {U'传', "chuan zhuan"},   {U'便', "bian pian"},     {U'俞', "yu shu"},
    {U'傳', "chuan zhuan"},   {U'冯', "feng ping"},     {U'区', "qu ou"},
    {U'區', "qu ou"},         {U'单', "dan shan chan"}, {U'卜', "bu bo"},
    {U'卡', "ka qia"},        {U'参', "can shen cen"},  {U'參', "can shen cen"},
    {U'句', "ju gou"},        {U'召', "zhao shao"},     {U'叶', "ye xie"},
    {U'合', "he ge"},         {U'员', "yuan yun"},      {U'和', "he huo"},
    {U'員', "yuan yun"},      {U'單', "dan shan chan"}, {U'嗯', "en ng n"},
    {U'圈', "quan juan"},     {U'圩', "xu wei"},        {U'埔', "pu bu"},
    {U'堡', "bao pu"},        {U'大', "da dai"},        {U'奇', "qi ji"},
    {U'娜', "na nuo"},        {U'宓', "mi fu"},         {U'宿', "su xiu"},
    {U'尉', "wei yu"},        {U'尾', "wei yi"},        {U'巷', "xiang hang"},
    {U'幢', "chuang zhuang"}, {U'度', "du duo"},        {U'得', "de dei"},
    {U'恶', "e wu"},          {U'扎', "zha za"},        {U'折', "zhe she"},
    {U'提', "ti di"},         {U'晟', "sheng cheng"},   {U'曾', "ceng zeng"},
    {U'朝', "chao zhao"},     {U'朴', "pu piao po"},    {U'柏', "bai bo"},
    {U'查', "cha zha"},       {U'栎', "li yue"},        {U'校', "xiao jiao"},
    {U'樂', "le yue"},        {U'殷', "yin yan"},       {U'氏', "shi zhi"},
    {U'沈', "shen chen"},     {U'没', "mei mo"},        {U'泊', "bo po"},
    {U'泷', "long shuang"},   {U'洗', "xi xian"},       {U'涌', "yong chong"},
    {U'澄', "cheng deng"},    {U'瀑', "pu bao"},        {U'率', "lv lu shuai"},
    {U'琢', "zhuo zuo"},      {U'畜', "chu xu"},        {U'盖', "gai ge"},
    {U'盛', "sheng cheng"},   {U'省', "sheng xing"},    {U'瞿', "qu ju"},
    {U'石', "shi dan"},       {U'祭', "ji zhai"},       {U'种', "zhong chong"},
    {U'秘', "mi bi"},         {U'称', "cheng chen"},    {U'系', "xi ji"},
    {U'给', "gei ji"},        {U'缪', "mou miao miu"},  {U'翟', "di zhai"},
    {U'臭', "chou xiu"},      {U'艾', "ai yi"},         {U'茄', "qie jia"},
    {U'茜', "qian xi"},       {U'荠', "qi ji"},         {U'莎', "sha suo"},
    {U'莘', "shen xin"},      {U'葉', "ye xie"},        {U'蔚', "wei yu"},
    {U'薄', "bao bo"},        {U'藏', "cang zang"},     {U'蚌', "bang beng"},
    {U'血', "xue xie"},       {U'行', "xing hang"},     {U'覃', "tan qin"},
    {U'解', "jie xie"},       {U'調', "diao tiao"},     {U'说', "shuo shui yue"},
    {U'调', "diao tiao"},     {U'谌', "chen shen"},     {U'賈', "jia gu"},
    {U'贾', "jia gu"},        {U'車', "che ju"},        {U'车', "che ju"},
    {U'那', "na nuo"},        {U'郇', "huan xun"},      {U'都', "dou du"},
    {U'重', "zhong chong"},   {U'铅', "qian yan"},      {U'镐', "gao hao"},
    {U'長', "zhang chang"},   {U'长', "zhang chang"},   {U'陂', "bei pi po"},
    {U'降', "jiang xiang"},   {U'隗', "kui wei"},       {U'隽', "jun juan"},
    {U'颉', "jie xie"},       {U'馮', "feng ping"},     {U'龟', "gui jun qiu"},
});

}  // namespace quorvi
