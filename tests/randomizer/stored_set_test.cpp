#include "randomizer/stored_set.h"

#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

constexpr char kCutOff[] = "<Randomize><rate Min=\"1\" Max=\"2\"/><ra";

class Stored : public RandomizerStory {
 protected:
  void SetUp() override {
    Begin();
    set = std::make_unique<StoredSet>(*root, "Randomize", kRangesFile, machine.files, machine.files,
                                      machine.eventLog);
  }
  bool Ready() {
    return set->ReadyForChange(life->log, [this] { ++shown; });
  }

  const Ref<Document> root = Document::Create();
  std::unique_ptr<StoredSet> set;
  int shown = 0;
};

TEST_F(Stored, IsOneChildHoweverOftenItIsLoaded) {
  PutRanges(Range("rate", "1", "2"));
  set->Load();
  PutRanges(Range("rate", "3", "4") + Range("other", "5", "6"));
  set->Load();
  EXPECT_EQ(root->Childs().Count(), 1);
  EXPECT_EQ(set->Child()->Fields().Count(), 2);
  EXPECT_TRUE(Ready());
  EXPECT_EQ(shown, 0);
}

TEST_F(Stored, WhoseFileIsGoneByNowStaysAsItIsShown) {
  machine.files.Put(kRangesFile, kCutOff);
  set->Load();
  machine.files.Remove(kRangesFile);
  EXPECT_TRUE(Ready());
  EXPECT_EQ(set->Child()->Fields().Count(), 1);
  EXPECT_EQ(root->Childs().Count(), 1);
  EXPECT_EQ(shown, 0);
}

TEST_F(Stored, WhoseFileWasNeverThereIsEmptyAndReady) {
  EXPECT_TRUE(Ready());
  EXPECT_EQ(root->Childs().Count(), 1);
  EXPECT_EQ(set->Child()->Name(), "Randomize");
  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(Ready());
  EXPECT_EQ(shown, 1) << "asked once";
}

TEST_F(Stored, WhoseFileGoesBetweenTheLookAndTheReadingIsReadyToo) {
  machine.files.Put(kRangesFile, kCutOff);
  machine.recorder.beforeEach = [this] {
    if (machine.recorder.Calls().back() == "files.read(C:\\srv\\randomize.xml)") {
      machine.files.Remove(kRangesFile);
    }
  };
  EXPECT_TRUE(Ready());
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(shown, 1);
}

TEST_F(Stored, ThatIsRefusedIsToldEachTime) {
  machine.files.Put(kRangesFile, kCutOff);
  for (int twice = 0; twice < 2; ++twice) {
    EXPECT_FALSE(Ready());
    EXPECT_EQ(NewLog(), "2 C:\\srv\\randomize.xml file can't be loaded\n");
  }
  EXPECT_EQ(root->Childs().Count(), 0);
  EXPECT_EQ(shown, 0);
}

}  // namespace
}  // namespace tarvo
