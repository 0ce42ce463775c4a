#pragma once

// The alarm of a file or the ledger that can't be written. AlarmEars owns the one.

#include "base/News.h"
#include "bridge/watch/alarms/AlarmBook.h"

#include <string>

namespace halyard {

class FileAlarms : public News {
  public:
    explicit FileAlarms(AlarmBook& book) : book(book) {}

    /// `words` say what the ledger can't, or that it can again.
    void LedgerWritten(bool done, const std::string& words) { Written("the ledger", done, words); }

    void FileWritten(const std::string& path, bool done) override {
        Written(path, done, done ? "It is written again." : "The disk is full, or the file can't be had.");
    }

  private:
    void Written(const std::string& subject, bool done, const std::string& words) {
        if (done)
            book.End(AlarmKind::NotWritten, subject, words);
        else
            book.Raise(AlarmKind::NotWritten, subject, words);
    }

    AlarmBook& book;
};

} // namespace halyard
