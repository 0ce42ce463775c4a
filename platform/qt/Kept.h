#pragma once

// Holds an object of Qt's that may be running one of our handlers when it is let go: it falls silent at once
// and goes away when the message loop is reached. It has a parent, which ends it when no loop runs any more.

#include <QObject>
#include <QPointer>

namespace halyard {

template <typename T>
class Kept {
  public:
    explicit Kept(T* object) : object(object) {}
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    ~Kept() {
        if (!object) return;
        object->disconnect();
        object->deleteLater();
    }
    T* operator->() const { return object; }
    T* get() const { return object; }

  private:
    QPointer<T> object;
};

} // namespace halyard
