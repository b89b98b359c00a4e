#pragma once
// The messages that the host sends or reads, each with its lines. Lines stand in a message in the order in
// which they were set, so call the setters in the order in which they are declared.

#include <string>
#include <string_view>
#include <vector>

#include "data/data_session.h"
#include "data/data_user_info.h"
#include "protocol/define_vrp.h"
#include "protocol/vr_message.h"

// A message whose method is its class.
template <const std::string_view& Method>
class VRMessageOf : public VRMessage {
public:
    VRMessageOf() { VRMessageOf::clear(); }
    // A received message, seen as one of this class.
    explicit VRMessageOf(const VRMessage& message) : VRMessage(message) {}

    void clear() override {
        VRMessage::clear();
        setMethod(Method);
    }
};

using VRMIAmHere = VRMessageOf<DefineVrp::MDS_IAMHERE>;

class VRMStatusNotify : public VRMessageOf<DefineVrp::MDS_STATUSNOTIFY> {
public:
    void setStatus(std::string_view stateName);
    void setQuest(std::int32_t quest); // from 1, over the whole session
    void setMaxQuest(std::int32_t quests);
    void setSessionInfo(const DataSession& stage); // nine lines
};

class VRMAnsRes : public VRMessageOf<DefineVrp::MDS_ANSRES> {
public:
    void setUserNumber(std::int32_t user); // from 0
    void setResult(bool correct);
    void setScore(std::int32_t points);
    void setType(std::int32_t answerRight);
    void setAssumption(std::int32_t steal);
};

class VRMDspAns : public VRMessageOf<DefineVrp::MDS_DSPANS> {
public:
    void setAnsSize(std::int32_t answers);
    // Title and artist of each song. Signs of the format ("(", ")", ",") are not escaped.
    void setAnswer(const zelkova::DataPairsList& answers);
};

class VRMRevision : public VRMessageOf<DefineVrp::MDS_REVISION> {
public:
    void setUserInfo(const std::vector<DataUserInfo>& users);
};

class VRMResponse : public VRMessageOf<DefineVrp::MDS_RESPONSE> {
public:
    using VRMessageOf::VRMessageOf;

    void setReply(std::string_view method);
    void setCode(std::int32_t code);
    void setMessage(std::string_view sentence);

    std::string getReply() const;
    std::int32_t getCode() const; // 0 without a line "Code"
};

// Views of a received message, which has to live longer.

class VRMUserNotify {
public:
    explicit VRMUserNotify(const VRMessage& message) : message_(message) {}
    std::int32_t getMax() const;
    std::vector<std::string> getUser() const; // one empty name without a line "User"

private:
    const VRMessage& message_;
};

class VRMAnsReq {
public:
    explicit VRMAnsReq(const VRMessage& message) : message_(message) {}
    std::int32_t getUserNumber() const; // anything that the terminal wrote

private:
    const VRMessage& message_;
};
