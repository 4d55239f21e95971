// MailList: the mails of a mail client's store. Like every container of the toolkit it deletes nothing: the
// caller who provides the list owns the mails in it and deletes each.
#pragma once

#include "KVUtils/Source/mail/Mail.h"
#include "SV/core/Container.h"

namespace kv {

/// The toolkit's container, typed; every operation returns what it returns there.
class MailList : public sv::Container {
  public:
    explicit MailList(unsigned short blockSize = 1024, unsigned short initialSize = 16,
                      unsigned short growth = 16)
        : Container(blockSize, initialSize, growth) {}

    void Insert(Mail* mail) { Container::Insert(mail); }
    void Insert(Mail* mail, unsigned long position) { Container::Insert(mail, position); }

    Mail* Remove() { return Typed(Container::Remove()); }
    Mail* Remove(unsigned long position) { return Typed(Container::Remove(position)); }
    Mail* Remove(Mail* mail) { return Typed(Container::Remove(static_cast<void*>(mail))); }

    [[nodiscard]] Mail* GetObject(unsigned long position) const noexcept {
        return Typed(Container::GetObject(position));
    }

    Mail* First() noexcept { return Typed(Container::First()); }
    Mail* Last() noexcept { return Typed(Container::Last()); }
    Mail* Next() noexcept { return Typed(Container::Next()); }
    Mail* Prev() noexcept { return Typed(Container::Prev()); }

  private:
    [[nodiscard]] static Mail* Typed(void* entry) noexcept { return static_cast<Mail*>(entry); }
};

}  // namespace kv
