#include "data/data_application.h"

#include <string_view>

std::span<const record::Field<DataFundamental>> DataFundamental::fields() {
    static const record::Field<DataFundamental> table[] = {
        {"name", "name", &DataFundamental::mName},
        {"nameJpn", "nameJpn", &DataFundamental::mNameJpn},
        {"omitName", "omitName", &DataFundamental::mOmitName},
        {"detail", "detail", &DataFundamental::mDetail},
        {"product", "product/name", &DataFundamental::mProduct},
        {"productJpn", "product/nameJpn", &DataFundamental::mProductJpn},
        {"productUrl", "product/url", &DataFundamental::mProductUrl},
        {"productCpyLght", "product/copylight", &DataFundamental::mProductCpyLght},
        {"productMail", "product/mail", &DataFundamental::mProductMail},
        {"manufactur", "manufacture/name", &DataFundamental::mManufactur},
        {"manufactureJpn", "manufacture/nameJpn", &DataFundamental::mManufactureJpn},
        {"manufactureUrl", "manufacture/url", &DataFundamental::mManufactureUrl},
        {"manufactureCpyLght", "manufacture/copylight", &DataFundamental::mManufactureCpyLght},
        {"manufactureMail", "manufacture/mail", &DataFundamental::mManufactureMail},
        {"sales", "sales/name", &DataFundamental::mSales},
        {"salesJpn", "sales/nameJpn", &DataFundamental::mSalesJpn},
        {"salesUrl", "sales/url", &DataFundamental::mSalesUrl},
        {"salesMail", "sales/mail", &DataFundamental::mSalesMail},
        {"user", "user", &DataFundamental::mUser},
        {"installDate", "installDate", &DataFundamental::mInstallDate},
        {"updateDate", "updateDate", &DataFundamental::mUpdateDate},
        {"version", "version", &DataFundamental::mVersion},
        {"helpUrl", "helpUrl", &DataFundamental::mHelpUrl},
    };
    return table;
}

std::span<const record::Field<DataApplication>> DataApplication::fields() {
    // The misspelled elements are the format.
    static const record::Field<DataApplication> table[] = {
        {"resourceFileName", "resourceFileName", &DataApplication::mResourceFileName},
        {"sessionFileName", "sessionFileName", &DataApplication::mSessionFileName},
        {"user", "user", &DataApplication::mUser},
        {"password", "password", &DataApplication::mPassword},
        {"serverPort", "serverPort", &DataApplication::mServerPort, "sessionFileName"},
        {"wordFullPath", "wordFullPath", &DataApplication::mWordFullPath},
        {"logRollBackNumber", "log/backupNumber", &DataApplication::mLogRollBackNumber},
        {"logRollFileSize", "log/backupFileSize", &DataApplication::mLogRollFileSize},
        {"logLevel", "log/level", &DataApplication::mLogLevel},
        {"logFileName", "log/fileName", &DataApplication::mLogFileName},
        {"efcUnknown", "effect/unkown", &DataApplication::mEfcUnknown},
        {"efcOk", "effect/ok", &DataApplication::mEfcOk},
        {"efcNg", "effect/ng", &DataApplication::mEfcNg},
        {"efcQuestion", "effect/question", &DataApplication::mEfcQuestion},
        {"efcRequest1", "effect/request1", &DataApplication::mEfcRequest1},
        {"efcRequest2", "effect/request2", &DataApplication::mEfcRequest2},
        {"efcRequest3", "effect/request3", &DataApplication::mEfcRequest3},
        {"efcRequest4", "effect/request4", &DataApplication::mEfcRequest4},
        {"efcFinalBell", "effect/finalBell", &DataApplication::mEfcFinalBell},
        {"efcVectory", "effect/vectory", &DataApplication::mEfcVectory},
        {"enableFinalBell", "effect/finalBell/@enable", &DataApplication::mEnableFinalBell},
        {"enableVectory", "effect/vectory/@enable", &DataApplication::mEnableVectory},
        {"efcOpening", "effect/oepning", &DataApplication::mEfcOpening},
        {"efcEndingl", "effect/endinfg", &DataApplication::mEfcEndingl},
        {"efcApplause", "effect/applause", &DataApplication::mEfcApplause},
        {"efcThinking", "effect/thinking", &DataApplication::mEfcThinking},
        {"efcTimeUp", "effect/timeup", &DataApplication::mEfcTimeUp},
        {"efcWrnAnswer", "effect/wrnAnswer", &DataApplication::mEfcWrnAnswer},
        {"efcDrumRoll", "effect/drumRoll", &DataApplication::mEfcDrumRoll},
        {"efcAward", "effect/award", &DataApplication::mEfcAward},
        {"efcApplause2", "effect/applause2", &DataApplication::mEfcApplause2},
        {"efcIntroduction", "effect/introduction", &DataApplication::mEfcIntroduction},
        {"masterOfCeremony", "masteerOfCeremony", &DataApplication::mMasterOfCeremony},
        {"partOpening", "effect/partOpening", &DataApplication::mPartOpening},
        {"partEnding", "effect/partEnding", &DataApplication::mPartEnding},
        {"cheerFlg", "cheerFlg", &DataApplication::mCheerFlg},
        {"steal", "effect/steal", &DataApplication::mSteal},
        {"certificateSessionName", "certicate/sessionName", &DataApplication::mCertificateSessionName},
        {"certificateCompany", "certicate/company", &DataApplication::mCertificateCompany},
        {"certificatePost", "certicate/post", &DataApplication::mCertificatePost},
        {"certificatePublisher", "certicate/publisher", &DataApplication::mCertificatePublisher},
        {"applicationSessionName", "application/sessionName", &DataApplication::mApplicationSessionName},
        {"applicationOrganizer", "application/organizer", &DataApplication::mApplicationOrganizer},
        {"applicationDelegate", "application/delegate", &DataApplication::mApplicationDelegate},
        {"applicationDsp", "application/dsp", &DataApplication::mApplicationDsp},
    };
    return table;
}

zelkova::DataPairsList DataApplication::settings() const {
    zelkova::DataPairsList pairs;
    for (const auto& field : fields()) {
        const std::string_view key = field.key;
        if (key == "password")
            pairs.add(field.key, "****");
        else if (key == "masterOfCeremony")
            pairs.add(field.key, getMasterOfCeremony() ? 1 : 0);
        else
            pairs.add(field.key, record::textOf(*this, field));
    }
    return pairs;
}
