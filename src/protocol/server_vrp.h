#pragma once
// The four requests of the host. Each sends at once; whether a request may be open is the caller's business.

#include <vector>

#include "data/data_session.h"
#include "data/data_user_info.h"
#include "protocol/vr_connection.h"

class ServerVrp : public VRConnection {
public:
    using VRConnection::VRConnection;

    void sendStatusNotify(std::string_view status, int quest, int maxQuest, const DataSession& stage);
    void sendAnsRes(int user, bool correct, int score, int type, int assumption);
    void sendDspAns(const zelkova::DataPairsList& answers); // titles and their artists
    void sendRevision(const std::vector<DataUserInfo>& users);
};
