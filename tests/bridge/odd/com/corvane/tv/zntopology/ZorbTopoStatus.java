package com.corvane.tv.zntopology;

/** Lacks the method that sets it. */
public class ZorbTopoStatus {}
