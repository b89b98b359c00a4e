#include "host/state/rule_text.h"

#include <vector>

#include "data/labels.h"
#include "foundation/text.h"

namespace {

constexpr int noDeduction = 1; // a deduction is 0 or below

std::string bracketed(const std::string& text) {
    return "[" + text + "]";
}

std::string bracketed(int number) {
    return bracketed(zelkova::numberToText(number));
}

} // namespace

std::string penaltyText(const DataSession& stage) {
    std::vector<std::string> lines;
    if (stage.getDeduction() != noDeduction) lines.push_back("減点:" + bracketed(stage.getDeduction()));
    if (stage.getHandsType() != handsNone)
        lines.push_back("お手つき(" + handsTypeLabels.text(stage.getHandsType()) +
                        "):" + bracketed(stage.getHands()));
    if (stage.getSteal() != stealNone) lines.push_back("横取り:[" + stealLabels.text(stage.getSteal()) + "]");
    if (lines.empty()) return "なし";
    std::string text = lines[0];
    for (std::size_t i = 1; i < lines.size(); ++i)
        text += "\r\n" + lines[i];
    return text;
}

std::string falseStartText(const DataSession& stage) {
    const std::string count = bracketed(stage.getHands());
    switch (stage.getHandsType()) {
    case handsInStage:
        return "このステージ中に" + count + "回 お手つきした場合、このステージが完了するまでお休み。";
    case handsInQuest:
        return "この問題中に" + count + "回 お手つきした場合、この問題が完了するまでお休み。";
    case handsRest:
        return "１回でもお手つきした場合、次の" + count + "問はお休み。";
    default:
        return {};
    }
}

std::string rightAnswerEffect(const DataSession& stage, const std::string& name, int points) {
    const std::string text = bracketed(name) + "へ" + bracketed(points) + "点 加算する";
    return stage.getSteal() == stealByName ? text + "(横取り)" : text;
}

std::string wrongAnswerEffect(const DataSession& stage, const std::string& name) {
    const bool falseStart = stage.getHandsType() != handsNone;
    if (stage.getDeduction() != noDeduction)
        return bracketed(name) + "を" + bracketed(stage.getDeduction()) + "点 減点する" +
               (falseStart ? " (お手つき追加)" : "");
    return falseStart ? bracketed(name) + "へお手付きを追加する" : "なし";
}

std::string stealEffect(const std::string& victim, const std::string& winner, int points) {
    return bracketed(victim) + "から" + bracketed(winner) + "へ" + bracketed(points) + "点 移動する";
}
