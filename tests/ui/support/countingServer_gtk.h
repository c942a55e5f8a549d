// A server on this machine that notes what it is asked for.
#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <mutex>
#include <netinet/in.h>
#include <set>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace tavisk::test {

/// Answers everything with an empty document, and ends with this object.
class CountingServer {
public:
    CountingServer() {
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof own;
        auto* const name = reinterpret_cast<sockaddr*>(&own);
        if (socket_ < 0 || bind(socket_, name, size) != 0 || listen(socket_, SOMAXCONN) != 0 ||
            getsockname(socket_, name, &size) != 0)
            throw std::runtime_error("no socket on this machine");
        address_ = "http://127.0.0.1:" + std::to_string(ntohs(own.sin_port)) + "/";
        thread_ = std::thread([this] { serve(); });
    }
    CountingServer(const CountingServer&) = delete;
    CountingServer& operator=(const CountingServer&) = delete;
    ~CountingServer() {
        shutdown(socket_, SHUT_RDWR);
        thread_.join();
        close(socket_);
    }

    /// Ends with a slash.
    const std::string& address() const { return address_; }

    /// The paths that were asked for, without the slash in front.
    std::set<std::string> asked() const {
        const std::lock_guard lock(mutex_);
        return asked_;
    }

private:
    void serve() {
        while (true) {
            const int connection = accept(socket_, nullptr, nullptr);
            if (connection < 0) return;
            char head[1024];
            const ssize_t got = recv(connection, head, sizeof head, 0);
            const std::string request(head, got > 0 ? static_cast<std::size_t>(got) : 0);
            const std::size_t from = request.find('/') + 1;
            {
                const std::lock_guard lock(mutex_);
                asked_.insert(request.empty()
                                  ? "(connected)"
                                  : request.substr(from, request.find_first_of(" ?", from) - from));
            }
            constexpr std::string_view answer =
                "HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
            send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
            close(connection);
        }
    }

    int socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::string address_;
    std::thread thread_;
    mutable std::mutex mutex_;
    std::set<std::string> asked_;
};

}  // namespace tavisk::test
