#pragma once
// The settings: what the delivery says about the product, and what the user chose.

#include "data/record.h"

class DataFundamental {
public:
    void clear() { *this = DataFundamental(); }
    static std::span<const record::Field<DataFundamental>> fields();

    KDL_FIELD(zelkova::DataPairsList, PiList);
    KDL_FIELD(std::string, Name);
    KDL_FIELD(std::string, NameJpn);
    KDL_FIELD(std::string, OmitName);
    KDL_FIELD(std::string, Detail);
    KDL_FIELD(std::string, Product);
    KDL_FIELD(std::string, ProductJpn);
    KDL_FIELD(std::string, ProductUrl);
    KDL_FIELD(std::string, ProductCpyLght);
    KDL_FIELD(std::string, ProductMail);
    KDL_FIELD(std::string, Manufactur);
    KDL_FIELD(std::string, ManufactureJpn);
    KDL_FIELD(std::string, ManufactureUrl);
    KDL_FIELD(std::string, ManufactureCpyLght);
    KDL_FIELD(std::string, ManufactureMail);
    KDL_FIELD(std::string, Sales);
    KDL_FIELD(std::string, SalesJpn);
    KDL_FIELD(std::string, SalesUrl);
    KDL_FIELD(std::string, SalesMail);
    KDL_FIELD(std::string, User);
    KDL_FIELD(platform::SystemTime, InstallDate);
    KDL_FIELD(platform::SystemTime, UpdateDate);
    KDL_FIELD(Version, Version);
    KDL_FIELD(std::string, HelpUrl);
};

// Without a file every text is empty, every number 0 and every flag false. The effects are paths of sound
// files.
class DataApplication : public DataFundamental {
public:
    void clear() { *this = DataApplication(); }
    static std::span<const record::Field<DataApplication>> fields();
    // For the log: every field in order. The password is masked, for logs are mailed around.
    zelkova::DataPairsList settings() const;

    KDL_FIELD(std::string, ResourceFileName);
    KDL_FIELD(std::string, SessionFileName);
    KDL_FIELD(std::string, User);
    KDL_FIELD(std::string, Password);
    KDL_FIELD(std::int32_t, ServerPort, 0);
    KDL_FIELD(std::string, WordFullPath);
    KDL_FIELD(std::int32_t, LogRollBackNumber, 0);
    KDL_FIELD(std::int32_t, LogRollFileSize, 0);
    KDL_FIELD(std::string, LogLevel);
    KDL_FIELD(std::string, LogFileName);
    KDL_FIELD(std::string, EfcUnknown);
    KDL_FIELD(std::string, EfcOk);
    KDL_FIELD(std::string, EfcNg);
    KDL_FIELD(std::string, EfcQuestion);
    KDL_FIELD(std::string, EfcRequest1);
    KDL_FIELD(std::string, EfcRequest2);
    KDL_FIELD(std::string, EfcRequest3);
    KDL_FIELD(std::string, EfcRequest4);
    KDL_FIELD(std::string, EfcFinalBell);
    KDL_FIELD(std::string, EfcVectory);
    KDL_FIELD(bool, EnableFinalBell, false);
    KDL_FIELD(bool, EnableVectory, false);
    KDL_FIELD(std::string, EfcOpening);
    KDL_FIELD(std::string, EfcEndingl);
    KDL_FIELD(std::string, EfcApplause);
    KDL_FIELD(std::string, EfcThinking);
    KDL_FIELD(std::string, EfcTimeUp);
    KDL_FIELD(std::string, EfcWrnAnswer);
    KDL_FIELD(std::string, EfcDrumRoll);
    KDL_FIELD(std::string, EfcAward);
    KDL_FIELD(std::string, EfcApplause2);
    KDL_FIELD(std::string, EfcIntroduction);
    KDL_FIELD(bool, MasterOfCeremony, false);
    KDL_FIELD(std::string, PartOpening);
    KDL_FIELD(std::string, PartEnding);
    KDL_FIELD(bool, CheerFlg, false);
    KDL_FIELD(std::string, Steal);
    KDL_FIELD(std::string, CertificateSessionName);
    KDL_FIELD(std::string, CertificateCompany);
    KDL_FIELD(std::string, CertificatePost);
    KDL_FIELD(std::string, CertificatePublisher);
    KDL_FIELD(std::string, ApplicationSessionName);
    KDL_FIELD(std::string, ApplicationOrganizer);
    KDL_FIELD(std::string, ApplicationDelegate);
    KDL_FIELD(std::string, ApplicationDsp);
};
