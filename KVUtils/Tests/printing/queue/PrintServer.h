// A print server of the test's own: CUPS with all its files in a folder of the test, on a socket there. What
// its queues are sent is put into files.
#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <memory>

namespace kv::test {

class PrintServer {
  public:
    /// Empty where it is not installed.
    [[nodiscard]] static QString Program() {
        QString const found = QStandardPaths::findExecutable("cupsd");
        return found.isEmpty() ? QStandardPaths::findExecutable("cupsd", {"/usr/sbin"}) : found;
    }

    /// Starts it and makes it the one that programs here print through, which they look for once.
    PrintServer() {
        for (char const* const folder : {"etc", "bin/backend", "state", "cache", "spool", "tmp", "out"})
            QDir(root_.path()).mkpath(folder);
        WriteConfiguration();
        WriteBackend();
        qputenv("CUPS_SERVER", Path("socket").toLocal8Bit());
        server_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // A server that a broken test leaves behind ends by itself.
        server_.start("timeout", {"60", Program(), "-f", "-c", Path("etc/cupsd.conf"), "-s",
                                  Path("etc/cups-files.conf")});
    }
    PrintServer(PrintServer const&) = delete;
    PrintServer& operator=(PrintServer const&) = delete;
    ~PrintServer() {
        server_.terminate();
        if (!server_.waitForFinished(5000)) server_.kill();
        server_.waitForFinished();
    }

    [[nodiscard]] bool IsReady() const { return QFile::exists(Path("socket")); }
    [[nodiscard]] QString Path(QString const& name) const { return root_.filePath(name); }
    /// What a job has brought, by the order of the jobs: its pages, and its title and options in two lines.
    [[nodiscard]] QString Pages(int job) const { return Path("out/%1.pdf").arg(job); }
    [[nodiscard]] QString OptionsOf(int job) const { return Read(Path("out/%1.options").arg(job)); }
    [[nodiscard]] int JobCount() const {
        return static_cast<int>(QDir(Path("out")).entryList({"*.pdf"}, QDir::Files).size());
    }
    [[nodiscard]] QString Log() const { return Read(Path("error.log")); }

  private:
    [[nodiscard]] static QString Read(QString const& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    void Write(QString const& name, QString text) const {
        QFile file(Path(name));
        file.open(QIODevice::WriteOnly);
        file.write(text.replace("@ROOT@", root_.path()).toUtf8());
    }

    void WriteConfiguration() const {
        Write("etc/cups-files.conf",
              "ServerRoot @ROOT@/etc\nServerBin @ROOT@/bin\nStateDir @ROOT@/state\nCacheDir @ROOT@/cache\n"
              "RequestRoot @ROOT@/spool\nTempDir @ROOT@/tmp\nDataDir /usr/share/cups\nPrintcap\n"
              "AccessLog @ROOT@/access.log\nErrorLog @ROOT@/error.log\nPageLog @ROOT@/page.log\n");
        Write("etc/cupsd.conf",
              "LogLevel info\nListen @ROOT@/socket\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
              "<Location />\nAllow all\n</Location>\n"
              "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
        QString const queue =
            "<Printer %1>\nDeviceURI save:@ROOT@/out\nState Idle\nAccepting %2\nShared No\n"
            "ErrorPolicy abort-job\n</Printer>\n";
        Write("etc/printers.conf", queue.arg("Office", "Yes") + queue.arg("Closed", "No"));
    }

    // A backend that nobody else may run is run as the server's own user, who may write here.
    void WriteBackend() const {
        QFile::link("/usr/lib/cups/daemon", Path("bin/daemon"));
        Write("bin/backend/save",
              "#!/bin/sh\n[ $# -gt 0 ] || exit 0\nout=${DEVICE_URI#save:}\n"
              "printf '%s\\n' \"$3\" \"$5\" >\"$out/$1.options\"\n"
              "cat ${6:+\"$6\"} >\"$out/$1.part\" && mv \"$out/$1.part\" \"$out/$1.pdf\"\n");
        QFile::setPermissions(Path("bin/backend/save"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QTemporaryDir root_;
    QProcess server_;
};

}  // namespace kv::test
