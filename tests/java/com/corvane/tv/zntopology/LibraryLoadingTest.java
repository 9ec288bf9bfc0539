package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

/** In a JVM that is told a file which is not there: the class loads its library once. */
class LibraryLoadingTest {
  @Test
  void aLibraryThatIsNotThereIsAnErrorThatSaysWhatToDo() {
    System.setProperty(ZorbNative.LIBRARY_PROPERTY, "/nowhere/libzntopo.so");
    UnsatisfiedLinkError error = assertThrows(UnsatisfiedLinkError.class, Topology::new);
    assertNotNull(error.getCause());
    String message = error.getMessage();
    assertTrue(message.contains("zntopo.library names /nowhere/libzntopo.so"), message);
    assertTrue(message.contains("-Dzntopo.library=/folder/libzntopo.so"), message);
    assertTrue(message.contains("-Djava.library.path=/folder"), message);
  }
}
