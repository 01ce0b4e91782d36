// What a request asks for, told from its URL.
#include "platform/url_fetch.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvo {
namespace {

std::string Plain(const FetchRequest& given) {
  const auto request = PlainRequest(given);
  return request ? request->url + "|" + request->userName + "|" + request->password : "refused";
}

std::string Plain(const std::string& url, int protocol = 4) {
  FetchRequest request;
  request.url = url;
  request.protocol = protocol;
  return Plain(request);
}

TEST(PlainRequest, LooksForTheSchemeAtTheBeginningAlone) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"http://h/x", "http://h/x||"},
      {"HTTPS://h/x", "HTTPS://h/x||"},
      {"ftp://h/x", "ftp://h/x||"},
      {"h/x", "http://h/x||"},
      {"h/x?next=http://other/", "http://h/x?next=http://other/||"},
      {"h?a=b://c", "http://h?a=b://c||"},
      {"h:8080/x", "http://h:8080/x||"},
      {"1a://h", "http://1a://h||"},
      {"://h", "http://://h||"},
      {"a b://h", "http://a b://h||"},
      {" http://h/x\r\n", "http://h/x||"},
      {"", "http://||"},
  };
  for (const auto& [url, plain] : cases) EXPECT_EQ(Plain(url), plain) << url;
  EXPECT_EQ(Plain("h?a=http://b", 5), "https://h?a=http://b||");
}

TEST(PlainRequest, TakesTheCredentialsOutOfTheUrl) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"http://u:p@h/x", "http://h/x|u|p"}, {"u:p@h/x", "http://h/x|u|p"},
      {"http://u@h:80", "http://h:80|u|"},  {"http://u:p:q@h", "http://h|u|p:q"},
      {"http://u:p@q@h", "http://h|u|p@q"}, {"http://a%40b:%2f%3A%25@h", "http://h|a@b|/:%"},
      {"http://@h/x", "http://h/x||"},      {"http://:@h/x", "http://h/x||"},
      {"http://h/x@y", "http://h/x@y||"},   {"http://h?a@b", "http://h?a@b||"},
      {"http://h#a@b", "http://h#a@b||"},   {"http://h\\a@b", "http://h\\a@b||"},
  };
  for (const auto& [url, plain] : cases) EXPECT_EQ(Plain(url), plain) << url;
}

TEST(PlainRequest, RefusesCredentialsThatItCannotUse) {
  for (const char* url : {"http://u:%@h", "http://u:%4@h", "http://u:%4g@h", "http://%g4:p@h",
                          "http://u:a%00b@h", "http://:p@h"}) {
    EXPECT_EQ(Plain(url), "refused") << url;
  }
}

TEST(PlainRequest, RefusesCredentialsThatTheRequestContradicts) {
  FetchRequest request;
  request.url = "http://u:p@h";
  request.userName = "u";
  request.password = "p";
  EXPECT_EQ(Plain(request), "http://h|u|p");
  request.password = "other";
  EXPECT_EQ(Plain(request), "refused");
  request.userName = "other";
  request.password = "p";
  EXPECT_EQ(Plain(request), "refused");
  request.url = "http://h";
  EXPECT_EQ(Plain(request), "http://h|other|p");
}

TEST(WithoutCredentials, LeavesTheRestAsItIs) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"http://u:p@h/x@y", "http://h/x@y"}, {"u:%zz@h", "h"}, {" http://u:p@h ", "http://h"},
      {"http://h/x", "http://h/x"},         {"", ""},
  };
  for (const auto& [url, bare] : cases) EXPECT_EQ(WithoutCredentials(url), bare) << url;
}

}  // namespace
}  // namespace tarvo
