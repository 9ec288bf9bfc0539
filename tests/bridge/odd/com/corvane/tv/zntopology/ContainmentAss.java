package com.corvane.tv.zntopology;

/** Is only named. */
public class ContainmentAss {}
