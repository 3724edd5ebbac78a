#pragma once

#include <atomic>

namespace kv {

/// Whose turn it is on a connection, which serves one thread at a time. In a debug build two threads at once end the
/// program with a message, rather than somewhere else with none; a release build does not look.
class UsoUnico {
  public:
    /// A use of the connection while this object lives. The same thread may begin another one inside.
    class Turno {
      public:
        explicit Turno(UsoUnico& uso) : uso_(uso), primero_(kMira && uso.Tomar()) {}
        ~Turno() {
            if (primero_) uso_.dueno_ = nullptr;
        }
        Turno(const Turno&) = delete;
        Turno& operator=(const Turno&) = delete;

      private:
        UsoUnico& uso_;
        const bool primero_;
    };

  private:
#ifdef NDEBUG
    static constexpr bool kMira = false;
#else
    static constexpr bool kMira = true;
#endif

    /// False when this thread has it already; ends the program when another one has.
    bool Tomar();

    // A variable of the thread that has it.
    std::atomic<const void*> dueno_ = nullptr;
};

}  // namespace kv
