#include "platform/sqlite/InlineDatabase.h"

#include "platform/sqlite/Jobs.h"

namespace halyard {

InlineDatabase::InlineDatabase() { opened.result = {DatabaseFault::Failed, "The database was not opened."}; }

void InlineDatabase::Open(const DatabaseSpec& spec, Opened done) {
    opened = OpenConnection(spec, OpenMode::ReadWrite);
    const auto outcome = opened.outcome;
    const auto words = opened.result.words;
    if (done) done(outcome, words);
}

void InlineDatabase::Write(Job job, Done done) {
    const auto result = opened.connection ? RunWrite(*opened.connection, job) : opened.result;
    job = nullptr;
    if (done) done(result);
}

void InlineDatabase::Maintain(Job job, Done done) {
    const auto result = opened.connection ? RunMaintain(*opened.connection, job) : opened.result;
    job = nullptr;
    if (done) done(result);
}

std::shared_ptr<ReadTicket> InlineDatabase::Read(Job job, Done done) {
    // Whoever asked holds it once there is nothing left to cancel.
    auto ticket = std::make_shared<ReadTicket>();
    const auto result = opened.connection ? RunRead(*opened.connection, job) : opened.result;
    job = nullptr;
    if (done) done(result);
    return ticket;
}

} // namespace halyard
