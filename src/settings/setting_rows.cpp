#include "settings/setting_rows.h"

namespace {

using Settings = DataApplication;

// 基本設定
constexpr TextRow basicTexts[] = {
    {5101, &Settings::getSessionFileName, &Settings::setSessionFileName, Browse::Folder},
    {5102, &Settings::getResourceFileName, &Settings::setResourceFileName, Browse::Xml},
    {5104, &Settings::getUser, &Settings::setUser},
    {5105, &Settings::getPassword, &Settings::setPassword},
    {idWordProgram, &Settings::getWordFullPath, &Settings::setWordFullPath, Browse::Program},
};
constexpr NumberRow basicNumbers[] = {
    {5103, "ポート番号", &Settings::getServerPort, &Settings::setServerPort, 1, 65535},
};
constexpr FlagRow basicFlags[] = {
    {5107, &Settings::getMasterOfCeremony, &Settings::setMasterOfCeremony},
    {5108, &Settings::getCheerFlg, &Settings::setCheerFlg},
};

// 効果音１
constexpr TextRow effect1Texts[] = {
    {5201, &Settings::getEfcRequest1, &Settings::setEfcRequest1, Browse::Sound},
    {5202, &Settings::getEfcRequest2, &Settings::setEfcRequest2, Browse::Sound},
    {5203, &Settings::getEfcRequest3, &Settings::setEfcRequest3, Browse::Sound},
    {5204, &Settings::getEfcRequest4, &Settings::setEfcRequest4, Browse::Sound},
    {5205, &Settings::getEfcQuestion, &Settings::setEfcQuestion, Browse::Sound},
    {5206, &Settings::getEfcOk, &Settings::setEfcOk, Browse::Sound},
    {5207, &Settings::getEfcNg, &Settings::setEfcNg, Browse::Sound},
    {5208, &Settings::getEfcUnknown, &Settings::setEfcUnknown, Browse::Sound},
    {5209, &Settings::getEfcFinalBell, &Settings::setEfcFinalBell, Browse::Sound},
    {5210, &Settings::getEfcVectory, &Settings::setEfcVectory, Browse::Sound},
};
constexpr FlagRow effect1Flags[] = {
    {5211, &Settings::getEnableFinalBell, &Settings::setEnableFinalBell, 5209},
    {5212, &Settings::getEnableVectory, &Settings::setEnableVectory, 5210},
};

// 効果音２
constexpr TextRow effect2Texts[] = {
    {5301, &Settings::getEfcOpening, &Settings::setEfcOpening, Browse::Sound},
    {5302, &Settings::getEfcEndingl, &Settings::setEfcEndingl, Browse::Sound},
    {5303, &Settings::getEfcApplause, &Settings::setEfcApplause, Browse::Sound},
    {5304, &Settings::getEfcThinking, &Settings::setEfcThinking, Browse::Sound},
    {5305, &Settings::getEfcTimeUp, &Settings::setEfcTimeUp, Browse::Sound},
    {5306, &Settings::getEfcWrnAnswer, &Settings::setEfcWrnAnswer, Browse::Sound},
    {5307, &Settings::getEfcIntroduction, &Settings::setEfcIntroduction, Browse::Sound},
    {5308, &Settings::getEfcDrumRoll, &Settings::setEfcDrumRoll, Browse::Sound},
    {5309, &Settings::getEfcAward, &Settings::setEfcAward, Browse::Sound},
    {5310, &Settings::getEfcApplause2, &Settings::setEfcApplause2, Browse::Sound},
};

// 効果音３
constexpr TextRow effect3Texts[] = {
    {5401, &Settings::getPartOpening, &Settings::setPartOpening, Browse::Sound},
    {5402, &Settings::getPartEnding, &Settings::setPartEnding, Browse::Sound},
    {5403, &Settings::getSteal, &Settings::setSteal, Browse::Sound},
};

// ログ
constexpr TextRow logTexts[] = {
    {5501, &Settings::getLogFileName, &Settings::setLogFileName, Browse::Log},
};
constexpr NumberRow logNumbers[] = {
    {5502, "ロールファイル数", &Settings::getLogRollBackNumber, &Settings::setLogRollBackNumber, 0, 999},
    {idLogSize, "ロールサイズ", &Settings::getLogRollFileSize, &Settings::setLogRollFileSize, 0, INT32_MAX},
};

// その他
constexpr TextRow otherTexts[] = {
    {5601, &Settings::getCertificateSessionName, &Settings::setCertificateSessionName},
    {5602, &Settings::getCertificateCompany, &Settings::setCertificateCompany},
    {5603, &Settings::getCertificatePost, &Settings::setCertificatePost},
    {5604, &Settings::getCertificatePublisher, &Settings::setCertificatePublisher},
    {5605, &Settings::getApplicationSessionName, &Settings::setApplicationSessionName},
    {5606, &Settings::getApplicationOrganizer, &Settings::setApplicationOrganizer},
    {5607, &Settings::getApplicationDelegate, &Settings::setApplicationDelegate},
    {5608, &Settings::getApplicationDsp, &Settings::setApplicationDsp},
};

constexpr PageRows pages[] = {
    {"IDD_KDL0501_CONFIG_BASIC", basicTexts, basicNumbers, basicFlags},
    {"IDD_KDL0502_CONFIG_EFFECT", effect1Texts, {}, effect1Flags},
    {"IDD_KDL0504_CONFIG_EFFECT", effect2Texts, {}, {}},
    {"IDD_KDL0505_CONFIG_EFFECT", effect3Texts, {}, {}},
    {"IDD_KDL0503_CONFIG_LOG", logTexts, logNumbers, {}},
    {"IDD_KDL0506_CONFIG_OTHER", otherTexts, {}, {}},
};

} // namespace

const std::span<const PageRows> settingPages = pages;
