package com.corvane.tv.zntopology;

/** Lacks its constructor. */
public class ObjectStatus {}
