#include "bridge/networks/check/NetworkCheck.h"

#include "bridge/networks/check/CheckSteps.h"
#include "oscar/OscarSettings.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

/// One habit of a service must not hide the next, nor do harm: the check's own control copes with these on
/// every network, and the rows about ways tell where the bot would not. What it sends to sign on, and how it
/// connects, is as the network says.
constexpr Departure Coped[] = {
    Departure::NavigationAnswers, Departure::BareJoinRefusals,   Departure::UnenforcedBans,
    Departure::MainSignOffs,      Departure::WholeMessageBlocks, Departure::RateClassesAsTold,
    Departure::OneServiceRequest, Departure::ReachableRedirects, Departure::NamesAreNoCommands,
};

} // namespace

/// What the check hears of the bot's control: the rate tables as they come, since they can't be asked for
/// again without the bot taking the answer for a sign-on; the rest while a check runs.
class BotNews : public News {
  public:
    std::map<int, RatesTold> rates;
    CheckEars* ears = nullptr;      ///< while a check works over the bot's session
    News* frames = nullptr;         ///< who heard the frames before it, and goes on hearing them
    std::function<void()> onSignOn; ///< the bot begins to sign on

    void SignOnStage(const std::string&) override {
        if (onSignOn) onSignOn();
    }
    void SignedOff() override {
        rates.clear();
        if (ears) ears->SignedOff();
    }
    void ConnectionEnded(int socket, const std::string& text) override {
        rates.erase(socket);
        if (ears) ears->ConnectionEnded(socket, text);
    }
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override {
        rates.erase(room);
        if (ears) ears->RoomLeft(room, name, reason);
    }
    void RateClasses(int socket, const std::string& body) override { rates[socket] = RatesTold::Read(body); }
    void Frame(int socket, bool sent, int channel, std::string_view body) override {
        if (frames) frames->Frame(socket, sent, channel, body);
        if (ears) ears->Frame(socket, sent, channel, body);
    }
};

struct NetworkCheck::Parts {
    NetworkCheck& owner;
    Platform& platform;
    TillerSock& desk;
    Terms terms;
    CheckEars ears{platform};
    BotNews botNews;
    OscarSettings settings;
    std::unique_ptr<TillerSock> own; // while a check runs with a session of its own
    std::unique_ptr<CheckRun> run;   // while a check runs
    std::vector<CheckStep> steps;
    std::size_t at = 0;
    bool begun = false;
    bool botSignsOn = false;
    std::unique_ptr<Timer> soon; // ends the control's handlers before anything is told or closed
    std::unique_ptr<Timer> deadline;
    std::shared_ptr<int> life = std::make_shared<int>(); // renewed by each start and stop

    Parts(NetworkCheck& owner, Platform& platform, TillerSock& desk)
        : owner(owner), platform(platform), desk(desk), soon(platform.NewTimer()),
          deadline(platform.NewTimer()) {
        soon->SetInterval(1);
        soon->onTick = [this] { Tick(false); };
        deadline->SetInterval(StepDeadline);
        deadline->onTick = [this] { Tick(true); };
        ears.onHeard = [this] { soon->SetEnabled(true); };
        botNews.onSignOn = [this] {
            botSignsOn = own != nullptr;
            if (botSignsOn) soon->SetEnabled(true);
        };
    }
    ~Parts() { Close(); }

    void Start(const Terms& asked);
    void Tick(bool late);
    void Finish(const CheckStep& step, const Finding& finding);
    void Close();
    bool Tell(const CheckRow& row);
    void End();
};

void NetworkCheck::Parts::Start(const Terms& asked) {
    Close();
    terms = asked;
    at = 0;
    begun = false;
    const bool standing = desk.LoggedOn();
    botSignsOn = !standing && desk.Sockets().IsConnected(0);
    if (!standing) {
        settings = {};
        settings.LoginMD5 = terms.hashed;
        own = std::make_unique<TillerSock>(platform, settings, ears, ears);
        own->UseNetwork(terms.network);
        for (const auto departure : Coped) own->Switches().SetGuard(departure, Departures::Guard::On);
        own->ChatSendOn = false;
        own->SetNews(&ears);
        own->Tell().frames = &ears;
    }
    ears.Listen(standing ? desk : *own, standing, terms.name);
    run = std::make_unique<CheckRun>(CheckRun{terms, standing ? desk : *own, ears, platform, {}, {}});
    if (standing) {
        ears.heard.signedOn = true;
        ears.heard.rates = botNews.rates;
        botNews.ears = &ears;
        botNews.frames = std::exchange(desk.Tell().frames, &botNews);
    }
    steps = standing ? StandingSteps(*run) : OwnSteps(*run);
    soon->SetEnabled(true);
}

void NetworkCheck::Parts::Tick(bool late) {
    soon->SetEnabled(false);
    if (!run) return;
    if (botSignsOn) {
        if (Tell({"Check", CheckVerdict::DoesNot, "ended: the bot signs on itself"})) End();
        return;
    }
    const auto& step = steps[at];
    std::optional<Finding> finding;
    if (begun) {
        finding = step.look();
        if (!finding && !ears.heard.ended.empty()) finding = Finding{CheckVerdict::DoesNot, ears.heard.ended};
        if (!finding && late) finding = step.silence();
    } else {
        begun = true;
        deadline->SetEnabled(true);
        finding = step.begin();
    }
    if (finding) Finish(step, *finding);
}

void NetworkCheck::Parts::Finish(const CheckStep& step, const Finding& finding) {
    deadline->SetEnabled(false);
    begun = false;
    ++at;
    const bool last = at == steps.size();
    auto rows = last ? WayRows(ears.heard, terms.network) : std::vector<CheckRow>();
    if (!Tell({step.what, finding.verdict, finding.detail})) return;
    for (const auto& row : rows)
        if (!Tell(row)) return;
    if (last)
        End();
    else
        soon->SetEnabled(true);
}

/// False when the listener has stopped, started anew or destroyed the check.
bool NetworkCheck::Parts::Tell(const CheckRow& row) {
    const std::weak_ptr<int> same = life;
    if (const auto listener = owner.onRow) listener(row);
    return !same.expired();
}

void NetworkCheck::Parts::End() {
    Close();
    if (const auto listener = owner.onDone) listener();
}

void NetworkCheck::Parts::Close() {
    life = std::make_shared<int>();
    soon->SetEnabled(false);
    deadline->SetEnabled(false);
    if (run) run->LiftBan();
    ears.Forget();
    botNews.ears = nullptr;
    if (desk.Tell().frames == &botNews) desk.Tell().frames = std::exchange(botNews.frames, nullptr);
    steps.clear();
    run.reset();
    own.reset();
}

NetworkCheck::NetworkCheck(Platform& platform, TillerSock& desk)
    : parts(std::make_unique<Parts>(*this, platform, desk)) {}

NetworkCheck::~NetworkCheck() = default;

void NetworkCheck::Start(const Terms& terms) {
    if (!Running()) parts->Start(terms);
}

void NetworkCheck::Stop() { parts->Close(); }

bool NetworkCheck::Running() const { return parts->run != nullptr; }

std::string NetworkCheck::HexLog() const { return parts->ears.log.Text(); }

News& NetworkCheck::Listener() { return parts->botNews; }

} // namespace halyard
